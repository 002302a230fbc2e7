# docparser_room(NAME SOURCES ... [LINK ...])
#
# A room is one folder of the library as an object library. The shared library and the unit tests
# link the same objects, so hidden functions are tested without being exported.
function(docparser_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINK" ${ARGN})
    set(target docparser_${name})
    add_library(${target} OBJECT ${ROOM_SOURCES})
    target_include_directories(${target} PUBLIC
        ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include)
    target_link_libraries(${target} PUBLIC ${DOCPARSER_PLATFORM} docparser::seam Boost::json ${ROOM_LINK}
        PRIVATE $<BUILD_INTERFACE:docparser_options>)
    target_compile_definitions(${target} PRIVATE docparser_EXPORTS)
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()
