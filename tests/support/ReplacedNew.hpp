#pragma once

#include <cstddef>

namespace docparser_tests {

/// What operator new and operator delete do in a program that compiles ReplacedNew.cpp, in all
/// forms except the over-aligned ones. The program defines both functions.
/// \returns  memory of at least `size` bytes; null if the allocation fails
void* allocateForNew(std::size_t size) noexcept;
/// \param memory  from allocateForNew(), or null
void releaseForDelete(void* memory) noexcept;

} // namespace docparser_tests
