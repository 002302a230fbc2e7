#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <cstddef>
#include <string>

namespace reference::docparser::benchmarks {

/// The room at the end of a text that saves simdjson from copying it.
inline constexpr std::size_t kSpareBytes = 64;

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

} // namespace reference::docparser::benchmarks
