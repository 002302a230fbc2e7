#pragma once

#include "tools/refdoc/index/IndexTable.hpp"
#include "tools/refdoc/index/words/WordEnds.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace refdoc::site {

/// The table "list", which has the ends of all words with the records that have the words.
struct WordList {
    std::string directories;             ///< as IndexTable::finish() returns them
    std::vector<std::size_t> partStarts; ///< for each part, the first end in it
};

/// Writes the table "list".
/// \param numbers  of the records, in their order
WordList writeWordList(const WordEnds& ends, const Words& words,
                       const std::vector<std::uint32_t>& numbers, const AddFile& addFile);

/// Writes the table "phrase". Returns what IndexTable::finish() returns.
std::string writePhrases(const Words& phrases, const std::vector<std::uint32_t>& numbers,
                         const AddFile& addFile);

} // namespace refdoc::site
