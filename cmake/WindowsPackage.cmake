# `cpack -G ZIP` packs refdoc for Windows, with every DLL that it needs and that Windows lacks.

# The DLLs of Windows itself. The package contains all other DLLs that refdoc needs.
set(system_dlls
    advapi32 api-ms-win-core-synch-l1-2-0 bcrypt kernel32 msvcrt ole32 shell32 user32 ws2_32)
list(JOIN system_dlls "|" system_dlls)

install(CODE "
    set(ENV{LC_ALL} C) # CMake parses the output of objdump
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND \"${CMAKE_OBJDUMP}\")
    file(GET_RUNTIME_DEPENDENCIES
        EXECUTABLES \"$<TARGET_FILE:refdoc>\"
        LIBRARIES
            \"$<TARGET_FILE:docparser>\"
            \"$<TARGET_FILE:docparser_c>\"
            \"$<TARGET_FILE:docparser_platform>\"
        DIRECTORIES \"$<TARGET_FILE_DIR:docparser>\" \"${DOCPARSER_WINDOWS_DEPENDENCIES}/bin\"
        PRE_EXCLUDE_REGEXES \"^(${system_dlls})[.]dll$\"
        POST_EXCLUDE_REGEXES \"/docparser(_c|_platform)?[.]dll$\"
        RESOLVED_DEPENDENCIES_VAR dlls)
    file(INSTALL \${dlls} DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    " COMPONENT refdoc)
install(DIRECTORY ${DOCPARSER_WINDOWS_DEPENDENCIES}/licences
    DESTINATION ${CMAKE_INSTALL_DOCDIR}
    COMPONENT licences)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME refdoc-${PROJECT_VERSION}-windows-x86_64)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
set(CPACK_COMPONENTS_ALL libraries refdoc licences)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
include(CPack)
