# docparser_bundled_platform(TARGET [EXCEPT FOLDER...])
#
# For an application with its own platform target (DOCPARSER_PLATFORM). Links docparser::seam to
# TARGET and compiles the bundled application libraries into it, except the folders of platform/ that
# the application replaces. The application defines what the headers of those folders declare. Its own
# header replaces a bundled one if it has the same path in an include folder of TARGET.
function(docparser_bundled_platform target)
    cmake_parse_arguments(PARSE_ARGV 1 BUNDLED "" "" "EXCEPT")
    get_target_property(folder docparser_bundled_objects SOURCE_DIR)
    get_target_property(files docparser_bundled_objects SOURCES)
    foreach(library IN LISTS BUNDLED_EXCEPT)
        list(LENGTH files count_before)
        list(FILTER files EXCLUDE REGEX "^${library}/")
        list(LENGTH files count)
        if(count EQUAL count_before)
            message(FATAL_ERROR "platform/${library} is not a bundled library")
        endif()
    endforeach()
    list(FILTER files INCLUDE REGEX "\\.cpp$")
    list(TRANSFORM files PREPEND ${folder}/)
    target_sources(${target} PRIVATE ${files} $<TARGET_OBJECTS:docparser_platform_internals>)

    # The settings of docparser_bundled_objects; TARGET exports what is marked with the export macro.
    get_target_property(libraries docparser_bundled_objects LINK_LIBRARIES)
    get_target_property(definitions docparser_bundled_objects COMPILE_DEFINITIONS)
    target_compile_definitions(${target} PRIVATE ${definitions})
    target_link_libraries(${target} PUBLIC docparser::seam Boost::headers PRIVATE ${libraries})
endfunction()
