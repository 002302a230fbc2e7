# Builds and runs SOURCE with nothing but a compiler and what pkg-config says.
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
execute_process(COMMAND ${PROGRAM} COMMAND_ERROR_IS_FATAL ANY)
