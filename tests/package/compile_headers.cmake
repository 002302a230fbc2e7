# Compiles all installed headers, to prove that every header they include is installed too: all of them as
# C++, and those of the C interface also as C99.

# include_all(FILE PATTERN...): writes a source that includes every header whose name matches.
function(include_all file)
    list(TRANSFORM ARGN PREPEND ${INCLUDE_FOLDER}/)
    file(GLOB_RECURSE headers RELATIVE ${INCLUDE_FOLDER} ${ARGN})
    if(NOT headers)
        message(FATAL_ERROR "no headers below ${INCLUDE_FOLDER}")
    endif()
    list(TRANSFORM headers PREPEND "#include <")
    list(TRANSFORM headers APPEND ">\n")
    string(CONCAT includes ${headers})
    file(WRITE ${file} "${includes}")
endfunction()

set(options -Wall -Wextra -Wpedantic -Werror -fsyntax-only -I${INCLUDE_FOLDER})
include_all(${SOURCE}.cpp *.h *.hpp)
execute_process(COMMAND ${COMPILER} -std=c++20 ${options} ${SOURCE}.cpp COMMAND_ERROR_IS_FATAL ANY)
include_all(${SOURCE}.c *.h)
execute_process(COMMAND ${C_COMPILER} -std=c99 -Wstrict-prototypes ${options} ${SOURCE}.c
    COMMAND_ERROR_IS_FATAL ANY)
