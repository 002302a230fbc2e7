# docparser_version_resource(TARGET DESCRIPTION)
#
# Windows shows name, description and version of a program or DLL from a resource in the file. Other
# systems have no such thing.
function(docparser_version_resource target description)
    if(NOT WIN32)
        return()
    endif()
    get_target_property(type ${target} TYPE)
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
    # Settings of the C++ compiler mean nothing to the resource compiler.
    set_source_files_properties(${resource} PROPERTIES LANGUAGE RC)
endfunction()
