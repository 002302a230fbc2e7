# `cmake --install` installs the libraries, the public headers under their repository paths, the tool,
# the JSON Schemas, a CMake package and pkg-config files. The installed tree can be moved as a whole.
#
# Each file belongs to a component, which `cmake --install --component` installs separately:
#   libraries    the files that programs need to run
#   development  the files that programs need to be built
#   refdoc       the tool
#   python       the Python package
#   licences     the copyright notice

include(CMakePackageConfigHelpers)

option(DOCPARSER_INSTALL "Install the project" ${PROJECT_IS_TOP_LEVEL})
if(NOT DOCPARSER_INSTALL)
    return()
endif()
if(NOT DOCPARSER_PLATFORM STREQUAL "docparser::platform")
    message(STATUS "Nothing is installed: the application packages its own platform libraries")
    return()
endif()

file(RELATIVE_PATH libraries_from_tool
    ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH prefix_from_pkg_config
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pkg_config ${prefix_from_pkg_config})
set(package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/docparser)

set_target_properties(docparser docparser_c docparser_platform PROPERTIES
    INSTALL_RPATH "$ORIGIN"
    INSTALL_RPATH_USE_LINK_PATH ON)
# Installs libraries, and describes them in the file EXPORT.cmake of the CMake package.
function(install_libraries export)
    install(TARGETS ${ARGN} EXPORT ${export}
        RUNTIME COMPONENT libraries
        LIBRARY COMPONENT libraries NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        FILE_SET HEADERS COMPONENT development
        FILE_SET generated COMPONENT development
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
    install(EXPORT ${export}
        NAMESPACE docparser::
        DESTINATION ${package_folder}
        COMPONENT development)
endfunction()
install_libraries(docparserTargets docparser docparser_platform)
install_libraries(docparserCTargets docparser_c)
if(TARGET refdoc)
    set_target_properties(refdoc PROPERTIES
        INSTALL_RPATH "$ORIGIN/${libraries_from_tool}"
        INSTALL_RPATH_USE_LINK_PATH ON)
    install(TARGETS refdoc RUNTIME COMPONENT refdoc)
endif()
install(FILES ${PROJECT_SOURCE_DIR}/debian/copyright
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT licences)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/schema
    DESTINATION ${CMAKE_INSTALL_DATADIR}/docparser
    COMPONENT development
    FILES_MATCHING PATTERN "*.schema.json")

configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/docparserConfig.cmake.in
    ${PROJECT_BINARY_DIR}/docparserConfig.cmake
    INSTALL_DESTINATION ${package_folder}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/docparserConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(
    FILES
        ${PROJECT_BINARY_DIR}/docparserConfig.cmake
        ${PROJECT_BINARY_DIR}/docparserConfigVersion.cmake
    DESTINATION ${package_folder}
    COMPONENT development)

# Not "Requires.private": Debian's libzip.pc requires more for static linking than libzip-dev installs.
set(private_libraries ${CMAKE_DL_LIBS})
list(TRANSFORM private_libraries PREPEND -l)
list(PREPEND private_libraries ${libzip_LDFLAGS} ${libdeflate_LDFLAGS} -lboost_log -lboost_json)
list(JOIN private_libraries " " private_libraries)
foreach(name docparser docparser-c docparser-platform)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${name}.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endforeach()

# The package contains the shared libraries.
if(TARGET refdoc AND WIN32 AND BUILD_SHARED_LIBS)
    include(WindowsPackage)
    # CPack would pack everything in the source folder. scripts/source-archive packs a commit.
    file(REMOVE ${PROJECT_BINARY_DIR}/CPackSourceConfig.cmake)
endif()
