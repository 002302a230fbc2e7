#pragma once

#include "benchmarks/rows/Corpus.hpp"

#include <vector>

namespace reference::docparser::benchmarks {

/// What has to be done at the least: the text parsed into a document, by boost::json::parse into
/// the arena that the library uses, and the document dropped again.
/// \returns  1 for a document, so that the work has a result
std::size_t parseOnly(const ProductText& text);

/// A copy of a text as the program that read it has it, with room behind.
ProductText copyOf(const ProductText& text);

std::vector<ProductText> copyOf(const std::vector<ProductText>& texts);

std::size_t bytesOf(const std::vector<ProductText>& texts);

} // namespace reference::docparser::benchmarks
