# The compiler settings that every target of the project shares.

add_library(docparser_options INTERFACE)
target_compile_features(docparser_options INTERFACE cxx_std_20)

if(MSVC)
    target_compile_options(docparser_options INTERFACE /W4 /permissive- /utf-8
        $<$<BOOL:${DOCPARSER_WARNINGS_AS_ERRORS}>:/WX>)
else()
    target_compile_options(docparser_options INTERFACE
        -Wall -Wextra -Wpedantic -Wconversion -Wshadow
        # GCC 12 mistakes the unused part of a moved short string for uninitialised memory.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>
        $<$<BOOL:${DOCPARSER_WARNINGS_AS_ERRORS}>:-Werror>)
endif()

# Symbols are resolved when a library is loaded. Otherwise the first call of a process resolves them,
# which made it a sixth slower.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
    target_link_options(docparser_options INTERFACE LINKER:-z,now)
endif()

# By default, windows.h defines the macros min and max, and declares far more than is needed.
if(WIN32)
    target_compile_definitions(docparser_options INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN UNICODE)
endif()

if(DOCPARSER_SANITIZERS)
    target_compile_options(docparser_options INTERFACE
        -fsanitize=${DOCPARSER_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(docparser_options INTERFACE -fsanitize=${DOCPARSER_SANITIZERS})
endif()

if(DOCPARSER_COVERAGE)
    # Concurrent threads must not lose counts.
    target_compile_options(docparser_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(docparser_options INTERFACE --coverage)
endif()

if(DOCPARSER_BUILD_FUZZERS)
    target_compile_options(docparser_options INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(docparser_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
