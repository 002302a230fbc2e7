#pragma once

#include <cstddef>

namespace docparser_tests {

/// ReplacedNew.cpp implements operator new and operator delete, except their over-aligned forms, by
/// these two functions. A program that compiles it must define both.
/// \returns  memory of at least `size` bytes; null if the allocation fails
void* allocateForNew(std::size_t size) noexcept;
/// \param memory  from allocateForNew(), or null
void releaseForDelete(void* memory) noexcept;

} // namespace docparser_tests
