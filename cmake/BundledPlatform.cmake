# docparser_bundled_platform(TARGET [EXCEPT FOLDER...])
#
# For an application with a platform target of its own (DOCPARSER_PLATFORM): compiles the bundled
# application libraries into TARGET, but for the folders of platform/ that the application replaces.
# The replacement defines what the headers of those folders declare.
function(docparser_bundled_platform target)
    cmake_parse_arguments(PARSE_ARGV 1 BUNDLED "" "" "EXCEPT")
    get_target_property(folder docparser_platform SOURCE_DIR)
    get_target_property(sources docparser_platform SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(library IN LISTS BUNDLED_EXCEPT)
        list(LENGTH sources count_before)
        list(FILTER sources EXCLUDE REGEX "^${library}/")
        list(LENGTH sources count)
        if(count EQUAL count_before)
            message(FATAL_ERROR "platform/${library} is no bundled library")
        endif()
    endforeach()
    list(TRANSFORM sources PREPEND ${folder}/)
    target_sources(${target} PRIVATE ${sources})

    # Like docparser_platform itself; what carries the export macro leaves the application's target.
    foreach(property INCLUDE_DIRECTORIES COMPILE_DEFINITIONS LINK_LIBRARIES)
        get_target_property(${property} docparser_platform ${property})
    endforeach()
    target_include_directories(${target} PUBLIC ${INCLUDE_DIRECTORIES})
    target_compile_definitions(${target} PRIVATE ${COMPILE_DEFINITIONS} docparser_platform_EXPORTS)
    target_compile_features(${target} PUBLIC cxx_std_20)
    target_link_libraries(${target} PRIVATE ${LINK_LIBRARIES} PUBLIC Boost::headers)
endfunction()
