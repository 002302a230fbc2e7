#pragma once

#include "docparser/Queries.hpp"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace refdoc::site {

/// The size of a part of the search index in bytes, unless a single entry is larger.
inline constexpr std::size_t kLargestPart = 200'000;

/// Returns the path of the page of an entry in the folder of the language; empty if it has none.
using FindPage = std::function<std::string(const reference::docparser::IndexEntry& entry)>;

/// Receives a file of the search index.
using AddFile = std::function<void(const std::string& name, std::string_view content)>;

/// Makes the files of the search index in one language: scripts "1.js", "2.js" and so on, and
/// "parts.js" with their number. Each passes its data to the function refdocIndex(): a part is an
/// array of rows in the order of the index, as readEntry() in `search.js` reads them.
void makeSearchIndex(const reference::docparser::LookupIndex& index, const FindPage& findPage,
                     const AddFile& addFile);

} // namespace refdoc::site
