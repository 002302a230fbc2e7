# docparser_export_names(TARGET [VERSION N] [NAMESPACES ...] [FUNCTIONS ...] [TYPES ...])
#
# Limits the exports of a shared library to its own namespaces and functions of C, and gives them a version
# node, such as DOCPARSER_1. Programs then refer to the names of this major version, even if another version
# is in the same process. Visibility settings alone would also export template instances of Boost and of the
# standard library, which are not part of the interface.
# VERSION is the number in the name of the node, by default the project's major version.
# FUNCTIONS are names of functions of C, or patterns of names, such as docparser_*.
# TYPES are classes of other libraries whose type information programs need to catch the library's
# exceptions. Has no effect on static libraries, with linkers that do not support version scripts, or on
# Windows, where a DLL exports only what is marked with the export macro.

include(CheckLinkerFlag)

# The mangled name of a namespace or class in a symbol: a::bc is 1a2bc.
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
    get_target_property(type ${target} TYPE)
    if(WIN32 OR NOT type STREQUAL "SHARED_LIBRARY")
        return()
    endif()
    cmake_parse_arguments(EXPORTED "" "VERSION" "FUNCTIONS;NAMESPACES;TYPES" ${ARGN})
    if(NOT EXPORTED_VERSION)
        set(EXPORTED_VERSION ${PROJECT_VERSION_MAJOR})
    endif()
    set(script ${PROJECT_BINARY_DIR}/${target}.map)

    set(patterns "")
    foreach(function IN LISTS EXPORTED_FUNCTIONS)
        string(APPEND patterns " ${function};")
    endforeach()
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
    string(TOUPPER ${target}_${EXPORTED_VERSION} node)
    file(CONFIGURE OUTPUT ${script} CONTENT "${node} { global:${patterns} local: *; };\n")

    set(option "LINKER:--version-script=${script}")
    check_linker_flag(CXX ${option} DOCPARSER_LINKER_READS_NAME_LISTS)
    if(DOCPARSER_LINKER_READS_NAME_LISTS)
        target_link_options(${target} PRIVATE ${option})
        set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${script})
    endif()
endfunction()
