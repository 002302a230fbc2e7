# Compiles the installed DocResourceParser.hpp with headers of another release of Boost. This must fail
# with a message that names the cause. SCRATCH is the folder of the replaced header.
file(WRITE ${SCRATCH}/boost/version.hpp
    "#include_next <boost/version.hpp>\n#undef BOOST_VERSION\n#define BOOST_VERSION 107400\n")
file(WRITE ${SCRATCH}/caller.cpp "#include <docparser/DocResourceParser.hpp>\n")
execute_process(
    COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${SCRATCH} -I${INCLUDE_FOLDER} ${SCRATCH}/caller.cpp
    RESULT_VARIABLE status
    ERROR_VARIABLE messages)
if(status EQUAL 0)
    message(FATAL_ERROR "headers of another release of Boost were accepted")
elseif(NOT messages MATCHES "docparser was built with another release of Boost")
    message(FATAL_ERROR "compiling failed for another reason:\n${messages}")
endif()
