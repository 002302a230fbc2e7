# Builds SOURCE with only a compiler and the flags of pkg-config for PACKAGE, runs it with ARGUMENTS and
# compares its output with the file EXPECTED.
set(ENV{PKG_CONFIG_PATH} ${PKG_CONFIG_FOLDER})
execute_process(
    COMMAND ${PKG_CONFIG} --cflags --libs ${PACKAGE}
    OUTPUT_VARIABLE options
    COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(options UNIX_COMMAND "${options}")
separate_arguments(ARGUMENTS UNIX_COMMAND "${ARGUMENTS}")

execute_process(
    COMMAND ${COMPILER} ${STANDARD} ${FLAGS} ${SOURCE} -o ${PROGRAM} ${options}
    COMMAND_ERROR_IS_FATAL ANY)

set(ENV{LD_LIBRARY_PATH} ${LIBRARY_FOLDER})
execute_process(
    COMMAND ${PROGRAM} ${ARGUMENTS}
    OUTPUT_VARIABLE output
    COMMAND_ERROR_IS_FATAL ANY)
file(READ ${EXPECTED} expected)
if(NOT output STREQUAL expected)
    message(FATAL_ERROR "the program printed: ${output}")
endif()
