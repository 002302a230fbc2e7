# `cpack -G DEB` makes three Debian packages, one a component: libdocparser1, libdocparser-dev, refdoc.
# They belong under /usr, with the libraries where the linker looks: the preset `package` says so.

set(DOCPARSER_MAINTAINER "docparser authors <maintainers@docparser.invalid>" CACHE STRING
    "Whom the Debian packages name as their maintainer")

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

# Which package a program needs that is linked with the libraries, and that the loader's cache is out
# of date once they are there. CPack could write the first, but with a release number in it, and knows
# nothing of the second.
file(WRITE ${debian_folder}/shlibs
    "libdocparser ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n"
    "libdocparser_platform ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n")
file(WRITE ${debian_folder}/triggers "activate-noawait ldconfig\n")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT ${DOCPARSER_MAINTAINER})
# Each package has a summary of its own.
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
    ${PROJECT_BINARY_DIR}/platform ${PROJECT_BINARY_DIR}/docparser)
set(exact_library "${library_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(what_it_is "docparser tells a help system what reference documentation the installed
products provide: for each function, class or other item its purpose,
syntaxes, arguments, examples and links, and an index of all names.")

set(CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA
    ${debian_folder}/shlibs ${debian_folder}/triggers)
set(CPACK_COMPONENT_LIBRARIES_DESCRIPTION "reference documentation of installed products
${what_it_is}

This package has the shared libraries.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdocparser-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# The public headers name types of Boost.JSON and Boost.Exception. Boost.Log is for a program that
# wants to see the library's messages.
string(REGEX MATCH "^[0-9]+\\.[0-9]+" boost_release ${boost_json_VERSION})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${exact_library}, libboost-json${boost_release}-dev, libboost${boost_release}-dev")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libboost-log${boost_release}-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "reference documentation of installed products - development
${what_it_is}

This package has what it takes to build programs against the libraries:
headers, a CMake package, pkg-config files, and JSON Schemas of the files
that are read.")

set(CPACK_DEBIAN_REFDOC_PACKAGE_NAME refdoc)
set(CPACK_DEBIAN_REFDOC_PACKAGE_SECTION text)
set(CPACK_DEBIAN_REFDOC_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_REFDOC_PACKAGE_DEPENDS ${exact_library})
set(CPACK_COMPONENT_REFDOC_DESCRIPTION "show reference documentation of installed products
refdoc shows what reference documentation the installed products provide:
the full records of a product, the index of all names, and what was found
where. It prints for people or as JSON.")

include(CPack)
