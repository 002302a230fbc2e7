# docparser_export_names(TARGET NAMESPACES ... [TYPES ...])
#
# Lets nothing leave a shared library but what lies in its namespaces. Visible templates of Boost and of
# the standard library stay inside, where visibility settings alone would let them out: they are no part
# of the interface. TYPES are the foreign classes by whose type information a program catches the
# library's exceptions. Linkers that cannot be told do without, and so does Windows, where a DLL exports
# what the export macro marks and nothing else.

include(CheckLinkerFlag)

# The name of a namespace or a class as the compilers write it into a symbol: a::bc is 1a2bc.
function(docparser_mangle name result)
    string(REPLACE "::" ";" parts ${name})
    set(mangled "")
    foreach(part IN LISTS parts)
        string(LENGTH ${part} length)
        string(APPEND mangled ${length}${part})
    endforeach()
    set(${result} ${mangled} PARENT_SCOPE)
endfunction()

function(docparser_export_names target)
    if(WIN32)
        return()
    endif()
    cmake_parse_arguments(EXPORTED "" "" "NAMESPACES;TYPES" ${ARGN})
    set(script ${PROJECT_BINARY_DIR}/${target}.map)

    set(patterns "")
    foreach(namespace IN LISTS EXPORTED_NAMESPACES)
        docparser_mangle(${namespace} mangled)
        # Members; const members; tables and type information; thunks.
        string(APPEND patterns
            " _ZN${mangled}*; _ZNK${mangled}*; _ZT[ISTV]N${mangled}*; _ZTh*_N${mangled}*;")
    endforeach()
    foreach(type IN LISTS EXPORTED_TYPES)
        docparser_mangle(${type} mangled)
        # Type information and its name.
        string(APPEND patterns " _ZTIN${mangled}E; _ZTSN${mangled}E;")
    endforeach()
    file(CONFIGURE OUTPUT ${script} CONTENT "{ global:${patterns} local: *; };\n")

    set(option "LINKER:--version-script=${script}")
    check_linker_flag(CXX ${option} DOCPARSER_LINKER_READS_NAME_LISTS)
    if(DOCPARSER_LINKER_READS_NAME_LISTS)
        target_link_options(${target} PRIVATE ${option})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    endif()
endfunction()
