# Includes the installed DocResourceParser.hpp with headers of Boost that name another release, which must
# be an error that says so. SCRATCH is for the replaced header.
file(WRITE ${SCRATCH}/boost/version.hpp
    "#include_next <boost/version.hpp>\n#undef BOOST_VERSION\n#define BOOST_VERSION 107400\n")
file(WRITE ${SCRATCH}/caller.cpp "#include <docparser/DocResourceParser.hpp>\n")
execute_process(
    COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${SCRATCH} -I${INCLUDE_FOLDER} ${SCRATCH}/caller.cpp
    RESULT_VARIABLE status
    ERROR_VARIABLE messages)
if(status EQUAL 0)
    message(FATAL_ERROR "headers of another release of Boost are accepted")
elseif(NOT messages MATCHES "docparser was built with another release of Boost")
    message(FATAL_ERROR "the error is another one:\n${messages}")
endif()
