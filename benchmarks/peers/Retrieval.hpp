#pragma once

#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/rows/Corpus.hpp"
#include "docparser/retrieval/LookupFiles.hpp"

namespace reference::docparser::benchmarks {

// Retrievals as an application would program them without the library: with the standard walk over
// a folder, POSIX calls and libzip. Sections of lookup files are merged by the library.

/// Reads the records of a product, in a language over English.
ResourceMap<property::RefItem> readProduct(const Corpus& corpus, const std::u16string& product,
                                           const std::string& language,
                                           ReadText<property::RefItem> readText);

/// Reads the lookup index, in a language over English.
LookupResults readIndex(const Corpus& corpus, const std::string& language,
                        ReadText<property::RefItemLookup> readText);

} // namespace reference::docparser::benchmarks
