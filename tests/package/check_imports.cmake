# Fails if LIBRARY imports a name that matches FORBIDDEN, although it embeds that code.
execute_process(
    COMMAND ${NM} --dynamic --undefined-only --demangle --format=just-symbols ${LIBRARY}
    OUTPUT_VARIABLE names
    COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\n" ";" names "${names}")
list(FILTER names INCLUDE REGEX ${FORBIDDEN})
if(names)
    list(JOIN names "\n    " names)
    message(FATAL_ERROR "imported although embedded:\n    ${names}")
endif()
