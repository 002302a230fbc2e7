#pragma once

#include "benchmarks/rows/Corpus.hpp"

#include <string_view>
#include <vector>

namespace reference::docparser::benchmarks {

/// Parses a text as the library does, into the arena that it uses, and drops the document.
/// \returns  1 for a document, so that the work has a result
std::size_t parseOnly(std::string_view text);

/// A copy of a text as the program that read it has it, with room behind.
ProductText copyOf(const ProductText& text);

std::vector<ProductText> copyOf(const std::vector<ProductText>& texts);

std::size_t bytesOf(const std::vector<ProductText>& texts);

} // namespace reference::docparser::benchmarks
