# Builds SOURCE, the quick start, with only a compiler and the flags of pkg-config, and runs it on
# REFERENCE_ROOT.
set(ENV{PKG_CONFIG_PATH} ${PKG_CONFIG_FOLDER})
execute_process(
    COMMAND ${PKG_CONFIG} --cflags --libs docparser
    OUTPUT_VARIABLE options
    COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(options UNIX_COMMAND "${options}")

execute_process(
    COMMAND ${COMPILER} -std=c++20 ${FLAGS} ${SOURCE} -o ${PROGRAM} ${options}
    COMMAND_ERROR_IS_FATAL ANY)

set(ENV{LD_LIBRARY_PATH} ${LIBRARY_FOLDER})
execute_process(
    COMMAND ${PROGRAM} ${REFERENCE_ROOT} Cellar
    OUTPUT_VARIABLE output
    COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "the program printed: ${output}")
endif()
