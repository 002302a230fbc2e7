# Builds the ZIP package, unpacks it and runs refdoc with only the DLLs of the package.

file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH})
execute_process(
    COMMAND ${CPACK} -G ZIP --config ${BUILD_FOLDER}/CPackConfig.cmake -B ${SCRATCH}
    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${output}")
endif()
file(GLOB packages ${SCRATCH}/*.zip)
file(ARCHIVE_EXTRACT INPUT ${packages} DESTINATION ${SCRATCH}/unpacked)
file(GLOB program ${SCRATCH}/unpacked/*/bin/refdoc.exe)

list(FILTER WINE EXCLUDE REGEX "^WINEPATH=")

# Runs refdoc and matches its output against a regular expression.
function(expect_output expression)
    execute_process(COMMAND ${WINE} ${program} ${ARGN}
        OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
    if(NOT status EQUAL 0 OR NOT output MATCHES "${expression}")
        message(FATAL_ERROR "refdoc ${ARGN}: status ${status}\n${output}${errors}")
    endif()
endfunction()

expect_output("^refdoc ${EXPECTED_VERSION}\n" --version)
expect_output("\"product\": \"Orchard\"" --install Z:${SAMPLES} show Orchard --json)

# Wine cannot create a junction, but it follows symbolic links of the build machine.
file(CREATE_LINK ${SAMPLES} ${SCRATCH}/junction SYMBOLIC)
expect_output("\"product\": \"Orchard\"" --install Z:${SCRATCH}/junction show Orchard --json)
expect_output("\"installed\"" --install Z:${SCRATCH}/junction lookup --json)
