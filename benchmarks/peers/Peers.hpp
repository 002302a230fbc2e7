#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <string>

namespace reference::docparser::benchmarks {

// The same work by other JSON libraries: the text of a resource file to the very records that
// parseResourceText() makes of it. Each is for RefItem and RefItemLookup.
//
// The text comes with kSpareBytes of room behind it, which some parsers want, and is the reader's
// to change and to release.

inline constexpr std::size_t kSpareBytes = 64;

/// nlohmann::json: a document of standard containers.
template <class T>
ResourceMap<T> readWithNlohmann(std::string text, const std::u16string& product);

/// RapidJSON, parsing in place: the document's strings stay in the text. Unlike all others it is
/// let off checking the encoding.
template <class T>
ResourceMap<T> readWithRapidJson(std::string text, const std::u16string& product);

/// simdjson On-Demand: no document; values are read while the text is gone through. Its parser is
/// kept from call to call, as its authors advise.
template <class T>
ResourceMap<T> readWithSimdjson(std::string text, const std::u16string& product);

} // namespace reference::docparser::benchmarks
