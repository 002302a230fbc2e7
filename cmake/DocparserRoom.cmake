# docparser_room_includes(FOLDER PATH...)
#
# Declares what the headers and sources directly in FOLDER may include, in addition to each other and the
# standard library: the files and folders PATH, as spelled in #include lines. The tests rooms.* compare
# the declaration with the #include lines.
function(docparser_room_includes folder)
    set_property(GLOBAL APPEND PROPERTY DOCPARSER_ROOMS ${folder})
    set_property(GLOBAL PROPERTY DOCPARSER_INCLUDES_OF_${folder} ${ARGN})
endfunction()

# docparser_room(NAME SOURCES FILE... MAY_INCLUDE PATH... [FOLDER FOLDER])
#
# Adds an object library, docparser_NAME, for a room: one folder of the library, by default
# docparser/NAME. MAY_INCLUDE is passed to docparser_room_includes(). The shared library and the unit
# tests link the same objects, so the tests can call functions that are not exported.
function(docparser_room name)
    cmake_parse_arguments(ROOM "" "FOLDER" "SOURCES;MAY_INCLUDE" ${ARGN})
    if(NOT ROOM_FOLDER)
        set(ROOM_FOLDER docparser/${name})
    endif()
    docparser_room_includes(${ROOM_FOLDER} docparser/Export.hpp ${ROOM_MAY_INCLUDE})

    set(target docparser_${name})
    add_library(${target} OBJECT ${ROOM_SOURCES})
    target_include_directories(${target} PUBLIC
        ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include)
    target_link_libraries(${target} PUBLIC ${DOCPARSER_PLATFORM} docparser::seam docparser_json
        PRIVATE $<BUILD_INTERFACE:docparser_options>)
    target_compile_definitions(${target} PRIVATE docparser_EXPORTS)
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()

# refdoc_room(NAME SOURCES FILE... MAY_INCLUDE PATH...)
#
# Adds the sources of a room of the tool, the folder tools/refdoc/NAME, to refdoc_parts. MAY_INCLUDE is
# passed to docparser_room_includes(). A room may include only rooms that are declared before it, so the
# rooms cannot include each other in a cycle.
function(refdoc_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;MAY_INCLUDE" ${ARGN})
    get_property(declared GLOBAL PROPERTY DOCPARSER_ROOMS)
    foreach(path IN LISTS ROOM_MAY_INCLUDE)
        if(path MATCHES "^tools/refdoc" AND NOT path IN_LIST declared)
            message(FATAL_ERROR
                "tools/refdoc/${name} may not include ${path}, which is not declared before it")
        endif()
    endforeach()
    docparser_room_includes(tools/refdoc/${name} ${ROOM_MAY_INCLUDE})
    target_sources(refdoc_parts PRIVATE ${ROOM_SOURCES})
endfunction()
