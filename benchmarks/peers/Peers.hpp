#pragma once

#include "benchmarks/rows/Corpus.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/retrieval/LookupFiles.hpp"

#include <string>

namespace reference::docparser::benchmarks {

/// Does the work of parseResourceText() with another JSON library and returns the same records.
/// Required keys are not checked.
/// \tparam T  property::RefItem or property::RefItemLookup
template <class T>
using ReadText = ResourceMap<T> (*)(std::string text, const std::u16string& product);

/// nlohmann::json: a document of standard containers.
template <class T>
ResourceMap<T> readWithNlohmann(std::string text, const std::u16string& product);

/// RapidJSON, parsing in place: the strings of the document stay in the text. As the only one, it
/// need not validate UTF-8.
template <class T>
ResourceMap<T> readWithRapidJson(std::string text, const std::u16string& product);

/// simdjson On-Demand: values are read during the parse, without a document. The parser is kept
/// between calls, as its authors recommend.
template <class T>
ResourceMap<T> readWithSimdjson(std::string text, const std::u16string& product);

/// Reads the records of a product, in a language over English, as an application would without the
/// library: with POSIX calls.
ResourceMap<property::RefItem> readProduct(const Corpus& corpus, const std::u16string& product,
                                           const std::string& language,
                                           ReadText<property::RefItem> readText);

/// Reads the lookup index, in a language over English, as an application would without the library:
/// with the standard walk over a folder, POSIX calls and libzip. The library merges the sections.
LookupResults readIndex(const Corpus& corpus, const std::string& language,
                        ReadText<property::RefItemLookup> readText);

} // namespace reference::docparser::benchmarks
