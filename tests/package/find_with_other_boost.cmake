# Configures a project that requires the package in PACKAGE_FOLDER where only a newer release of Boost.JSON
# is installed. The package must not be found, and the message must name both releases.
file(REMOVE_RECURSE ${SCRATCH})
set(boost_folder ${SCRATCH}/boost/lib/cmake/boost_json)
file(WRITE ${boost_folder}/boost_json-config.cmake "")
file(WRITE ${boost_folder}/boost_json-config-version.cmake
    "set(PACKAGE_VERSION 1.99.0)\nset(PACKAGE_VERSION_COMPATIBLE TRUE)\n")
file(WRITE ${SCRATCH}/CMakeLists.txt "
    cmake_minimum_required(VERSION 3.25)
    project(other_boost LANGUAGES CXX)
    set(CMAKE_FIND_USE_CMAKE_SYSTEM_PATH OFF)
    set(CMAKE_FIND_USE_SYSTEM_ENVIRONMENT_PATH OFF)
    find_package(docparser)
    if(docparser_FOUND)
        message(STATUS \"docparser was found\")
    endif()\n")
execute_process(
    COMMAND ${CMAKE_COMMAND} -S ${SCRATCH} -B ${SCRATCH}/build -G ${GENERATOR}
        -D docparser_DIR=${PACKAGE_FOLDER}
        -D CMAKE_CXX_COMPILER=${COMPILER}
        -D CMAKE_PREFIX_PATH=${SCRATCH}/boost
    OUTPUT_VARIABLE output
    ERROR_VARIABLE output
    COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "[ \n]+" " " line "${output}")
if(line MATCHES "docparser was found")
    message(FATAL_ERROR "the package was found with another release of Boost.JSON")
endif()
foreach(expected IN ITEMS
        "exactly matches requested version \"${BOOST_VERSION}\""
        "boost_json-config.cmake, version: 1.99.0")
    string(FIND "${line}" "${expected}" position)
    if(position EQUAL -1)
        message(FATAL_ERROR "the message does not contain <${expected}>:\n${output}")
    endif()
endforeach()
