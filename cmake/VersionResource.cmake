# docparser_version_resource(TARGET DESCRIPTION)
#
# Adds the resource from which Windows shows the name, description and version of a program or DLL. Has
# no effect on static libraries and on other systems.
function(docparser_version_resource target description)
    get_target_property(type ${target} TYPE)
    if(NOT WIN32 OR type STREQUAL "STATIC_LIBRARY")
        return()
    endif()
    if(type STREQUAL "EXECUTABLE")
        set(file_type VFT_APP)
        set(suffix ${CMAKE_EXECUTABLE_SUFFIX})
    else()
        set(file_type VFT_DLL)
        set(suffix ${CMAKE_SHARED_LIBRARY_SUFFIX})
    endif()
    set(resource ${CMAKE_CURRENT_BINARY_DIR}/${target}.rc)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/VersionResource.rc.in ${resource} @ONLY)
    target_sources(${target} PRIVATE ${resource})
    # The resource compiler does not understand the options of the C++ compiler.
    set_source_files_properties(${resource} PROPERTIES LANGUAGE RC)
endfunction()
