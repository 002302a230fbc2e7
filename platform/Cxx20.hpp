#pragma once

// Stops the compiler with one message if it compiles for an older standard than C++20. Every public
// header includes this one before all others, directly or through another header.
//
// MSVC stops at an #error. GCC and Clang would also report everything that they do not understand
// afterwards, but they stop at a missing file, whose name they print.

#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) < 202002L
#ifdef _MSC_VER
#error docparser requires C++20; compile with /std:c++20
#else
#define DOCPARSER_REQUIREMENT "docparser requires C++20; compile with -std=c++20"
#include DOCPARSER_REQUIREMENT
#endif
#endif
