# Builds for 64-bit Windows on Debian 12 and runs the programs under Wine. scripts/test-windows installs
# the required packages.
#
# DOCPARSER_WINDOWS_DEPENDENCIES, from the command line or the environment, is the folder of the
# libraries that Debian does not build for Windows. Without it only zlib is found.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The variant with POSIX threads has std::thread and std::mutex.
set(triplet x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triplet}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triplet}-g++-posix)
set(CMAKE_RC_COMPILER ${triplet}-windres)

set(DOCPARSER_WINDOWS_DEPENDENCIES "$ENV{DOCPARSER_WINDOWS_DEPENDENCIES}" CACHE PATH
    "Folder of the libraries that Debian does not build for Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES DOCPARSER_WINDOWS_DEPENDENCIES)

# Ignores the headers and libraries of the build machine.
set(CMAKE_FIND_ROOT_PATH ${DOCPARSER_WINDOWS_DEPENDENCIES} /usr/${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_LIBDIR} ${DOCPARSER_WINDOWS_DEPENDENCIES}/lib/pkgconfig)

# zlib is linked statically: the import library would require a DLL that Wine happens to have, but
# Windows does not.
set(ZLIB_LIBRARY /usr/${triplet}/lib/libz.a CACHE FILEPATH "zlib as a static library")

# Wine without its own messages, with its environment in the build folder. It searches the folder in
# WINEPATH for DLLs that are not in the folder of the program.
set(CMAKE_CROSSCOMPILING_EMULATOR
    ${CMAKE_COMMAND} -E env
        WINEPREFIX=${CMAKE_BINARY_DIR}/wine
        WINEPATH=Z:${DOCPARSER_WINDOWS_DEPENDENCIES}/bin
        WINEDEBUG=-all
        WINEDLLOVERRIDES=mscoree,mshtml=
    /usr/lib/wine/wine64)
