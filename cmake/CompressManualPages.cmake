# CPack runs this before it packs: Debian requires compressed manual pages, without time stamps.
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_DIRECTORY}/*.[1-9])
list(FILTER pages INCLUDE REGEX "/share/man/man[1-9]/[^/]+$")
foreach(page IN LISTS pages)
    execute_process(COMMAND gzip -9 --no-name ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
