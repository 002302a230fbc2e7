# Compiles each installed header whose name matches HEADERS as C++17, as the first header of a source. The
# compiler must report one error, which names the standard that is needed. SCRATCH is the folder of the
# source.
file(GLOB_RECURSE headers RELATIVE ${INCLUDE_FOLDER} ${INCLUDE_FOLDER}/${HEADERS})
if(NOT headers)
    message(FATAL_ERROR "no headers ${HEADERS} below ${INCLUDE_FOLDER}")
endif()

foreach(header IN LISTS headers)
    file(WRITE ${SCRATCH}/caller.cpp "#include <${header}>\n")
    execute_process(
        COMMAND ${COMPILER} -std=c++17 -fsyntax-only -I${INCLUDE_FOLDER} ${SCRATCH}/caller.cpp
        ERROR_VARIABLE messages)
    # The message has a semicolon, which separates the elements of a list.
    string(REPLACE ";" "," errors "${messages}")
    string(REGEX MATCHALL "error: [^\n]*" errors "${errors}")
    list(LENGTH errors count)
    if(NOT count EQUAL 1 OR NOT errors MATCHES "docparser requires C..20, compile with -std=c..20")
        message(FATAL_ERROR "${header}: expected one error, about the standard:\n${messages}")
    endif()
endforeach()
