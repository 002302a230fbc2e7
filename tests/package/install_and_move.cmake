# Installs the build into STAGED_PREFIX and moves the tree to MOVED_PREFIX, so that the tests prove that
# the package is relocatable.
file(REMOVE_RECURSE ${STAGED_PREFIX} ${MOVED_PREFIX})
execute_process(
    COMMAND ${CMAKE_COMMAND} --install ${BUILD_FOLDER}
        --config ${CONFIGURATION} --prefix ${STAGED_PREFIX}
    OUTPUT_QUIET
    COMMAND_ERROR_IS_FATAL ANY)
file(RENAME ${STAGED_PREFIX} ${MOVED_PREFIX})
