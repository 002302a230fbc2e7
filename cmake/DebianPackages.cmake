# `cpack -G DEB` makes three Debian packages, one for each component: libdocparser1, libdocparser-dev and
# refdoc. They install below /usr, with the libraries in the linker's folder, as the preset `package`
# specifies.

set(DOCPARSER_MAINTAINER "docparser authors <maintainers@docparser.invalid>" CACHE STRING
    "Maintainer of the Debian packages")

find_program(GZIP_PROGRAM gzip)
if(NOT GZIP_PROGRAM)
    message(STATUS "No Debian packages: gzip is missing")
    return()
endif()

set(debian_folder ${PROJECT_BINARY_DIR}/debian)
set(library_package libdocparser${PROJECT_VERSION_MAJOR})

file(STRINGS ${PROJECT_SOURCE_DIR}/packaging/changelog.Debian newest_entry LIMIT_COUNT 1)
if(NOT newest_entry MATCHES "^docparser \\(([0-9.]+)-([0-9]+)\\)"
        OR NOT CMAKE_MATCH_1 VERSION_EQUAL PROJECT_VERSION)
    message(FATAL_ERROR
        "packaging/changelog.Debian begins with \"${newest_entry}\"; "
        "an entry for version ${PROJECT_VERSION} is missing")
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/packaging/changelog.Debian)

# debian_documents(PACKAGE COMPONENT)
#
# Puts the copyright notice and the changelog into the package's share/doc. A plain `cmake --install`
# does not install them.
function(debian_documents package component)
    install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright ${debian_folder}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
        COMPONENT ${component}
        EXCLUDE_FROM_ALL)
endfunction()

file(MAKE_DIRECTORY ${debian_folder})
execute_process(
    COMMAND ${GZIP_PROGRAM} -9 --no-name --stdout ${PROJECT_SOURCE_DIR}/packaging/changelog.Debian
    OUTPUT_FILE ${debian_folder}/changelog.Debian.gz
    COMMAND_ERROR_IS_FATAL ANY)
debian_documents(${library_package} libraries)
debian_documents(libdocparser-dev development)
debian_documents(refdoc refdoc)

# The shlibs file names the package that programs linked with the libraries need. CPack would include a
# release number in it. The trigger updates the loader's cache, which CPack does not support.
file(WRITE ${debian_folder}/shlibs
    "libdocparser ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n"
    "libdocparser_c 1 ${library_package} (>= ${PROJECT_VERSION})\n"
    "libdocparser_platform ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n")
file(WRITE ${debian_folder}/triggers "activate-noawait ldconfig\n")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT ${DOCPARSER_MAINTAINER})
# Each package has its own summary.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/CompressManualPages.cmake)
set(CPACK_COMPONENTS_ALL libraries development refdoc)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE docparser)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR}/platform ${PROJECT_BINARY_DIR}/docparser ${PROJECT_BINARY_DIR}/docparser/c)
set(exact_library "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(what_it_is "docparser provides a help system with the reference documentation of the
installed products: the purpose, syntax, arguments, examples and links of
each function, class or other item, and an index of all names.")

set(CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA
    ${debian_folder}/shlibs ${debian_folder}/triggers)
set(CPACK_COMPONENT_LIBRARIES_DESCRIPTION "reference documentation of installed products
${what_it_is}

This package contains the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdocparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# The public headers use types of Boost.JSON and Boost.Exception. Boost.Log is for programs that
# receive the library's messages.
string(REGEX MATCH "^[0-9]+\\.[0-9]+" boost_release ${boost_json_VERSION})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${exact_library}, libboost-json${boost_release}-dev, libboost${boost_release}-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libboost-log${boost_release}-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "reference documentation of installed products - development
${what_it_is}

This package contains the files that are needed to build programs with the
libraries: headers, a CMake package, pkg-config files, and JSON Schemas of
the resource files.")

set(CPACK_DEBIAN_REFDOC_PACKAGE_NAME refdoc)
set(CPACK_DEBIAN_REFDOC_PACKAGE_SECTION text)
set(CPACK_DEBIAN_REFDOC_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_REFDOC_PACKAGE_DEPENDS ${exact_library})
set(CPACK_COMPONENT_REFDOC_DESCRIPTION "show reference documentation of installed products
refdoc shows the reference documentation of the installed products: the
full records of a product, the index of all names, and where each record
comes from. The output is for people or in JSON.")

include(CPack)
