# Compiles all installed headers, to prove that every header they include is installed too.
file(GLOB_RECURSE headers RELATIVE ${INCLUDE_FOLDER} ${INCLUDE_FOLDER}/*.h ${INCLUDE_FOLDER}/*.hpp)
if(NOT headers)
    message(FATAL_ERROR "no headers below ${INCLUDE_FOLDER}")
endif()

list(TRANSFORM headers PREPEND "#include <")
list(TRANSFORM headers APPEND ">\n")
string(CONCAT includes ${headers})
file(WRITE ${SOURCE} "${includes}")
execute_process(
    COMMAND ${COMPILER} -std=c++20 -Wall -Wextra -Werror -fsyntax-only -I${INCLUDE_FOLDER} ${SOURCE}
    COMMAND_ERROR_IS_FATAL ANY)

# The headers of the C interface, in C99.
file(GLOB_RECURSE headers ${INCLUDE_FOLDER}/*.h)
foreach(header IN LISTS headers)
    execute_process(
        COMMAND ${C_COMPILER} -std=c99 -Wall -Wextra -Wpedantic -Wstrict-prototypes -Werror
            -fsyntax-only -x c -I${INCLUDE_FOLDER} ${header}
        COMMAND_ERROR_IS_FATAL ANY)
endforeach()
