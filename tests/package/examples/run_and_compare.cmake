# cmake -D EXPECTED=FILE [-D STATUS=N] [-D ERRORS=TEXT] -P run_and_compare.cmake -- PROGRAM ARGUMENT...
#
# Runs a program. Fails unless it exits with STATUS (default 0), prints the content of EXPECTED and
# writes ERRORS (default nothing) to stderr.
set(command "")
set(isCommand FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(index RANGE ${last})
    if(isCommand)
        list(APPEND command ${CMAKE_ARGV${index}})
    elseif(CMAKE_ARGV${index} STREQUAL "--")
        set(isCommand TRUE)
    endif()
endforeach()
if(NOT STATUS)
    set(STATUS 0)
endif()

execute_process(COMMAND ${command}
    OUTPUT_VARIABLE output
    ERROR_VARIABLE errors
    RESULT_VARIABLE status)
file(READ ${EXPECTED} expected)
if(NOT status EQUAL STATUS)
    message(FATAL_ERROR "the program exited with ${status}: ${errors}")
endif()
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "the program printed:\n${output}instead of the content of ${EXPECTED}")
endif()
if(NOT errors STREQUAL "${ERRORS}")
    message(FATAL_ERROR "the program wrote to stderr:\n${errors}")
endif()
