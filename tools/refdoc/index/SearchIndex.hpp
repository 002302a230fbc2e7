#pragma once

#include "docparser/Queries.hpp"
#include "tools/refdoc/index/IndexTable.hpp"

#include <functional>
#include <string>

namespace refdoc::site {

/// Returns the path of the page of an entry in the folder of the language; empty if it has none.
using FindPage = std::function<std::string(const reference::docparser::IndexEntry& entry)>;

/// Makes the files of the search index in one language. docs/site.md tells what a search loads.
///
/// Every record has a number. Smaller numbers are better if all else is equal: records of installed
/// products come first, then those that are not deprecated, then the smaller names. The files are
///
/// - "row0.js", ...: the records, as readEntry() in `search.js` reads them. The number of a record
///   is 32 times the number of its file plus its position there.
/// - "list0.js", ...: an IndexTable of the ends of all words, with the records that have the word
/// - "best0.js", ...: an IndexTable of strings that very many records have, with the best records
/// - "phrase0.js", ...: as "list", of all that stands from the start of a word up to the next
///   space, unless there is a space before the word
/// - "name0.js", ...: an IndexTable of the names by their length, which is the first code unit of
///   the keys; in "eman0.js", ..., the names are reversed
/// - "start.js": the directories of the tables, and the first numbers of the records that are
///   deprecated, not installed, and both
///
/// A *word* here is a run of letters and digits, or of other characters. Of long names, links and
/// purposes, the index has the start.
///
/// \param addFile  is called on several threads at a time
void makeSearchIndex(const reference::docparser::LookupIndex& index, const FindPage& findPage,
                     const AddFile& addFile);

} // namespace refdoc::site
