# Compiles each installed header by itself: it brings what it needs, and all of that is installed.
file(GLOB_RECURSE headers RELATIVE ${INCLUDE_FOLDER} ${INCLUDE_FOLDER}/*.hpp)
if(NOT headers)
    message(FATAL_ERROR "no headers below ${INCLUDE_FOLDER}")
endif()

file(REMOVE_RECURSE ${WORK_FOLDER})
foreach(header IN LISTS headers)
    string(MAKE_C_IDENTIFIER ${header} name)
    file(WRITE ${WORK_FOLDER}/${name}.cpp "#include <${header}>\n")
endforeach()
file(GLOB sources ${WORK_FOLDER}/*.cpp)
execute_process(
    COMMAND ${COMPILER} -std=c++20 -fsyntax-only -I${INCLUDE_FOLDER} ${sources}
    COMMAND_ERROR_IS_FATAL ANY)
