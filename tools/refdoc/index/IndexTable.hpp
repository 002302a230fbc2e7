#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// The largest size of a file of the search index, in bytes.
inline constexpr std::size_t kLargestPart = 8'000;

/// Receives a file of the search index.
using AddFile = std::function<void(const std::string& name, std::string_view content)>;

/// Adds the file of a part of the search index: a script that passes the name of the part, the size
/// of the file and the data to the function refdocIndex().
/// \param json  the data
/// \throws std::length_error  the file would be larger than kLargestPart
void addPart(const AddFile& addFile, const std::string& name, std::string_view json);

/// Appends a number in the digits that numbersIn() in `tables.js` reads: one to five characters
/// of ASCII that JSON does not escape.
void appendNumber(std::uint32_t number, std::string& text);

/// Writes a sorted table of strings, each with a list of numbers, in parts. A directory has the
/// shortest string that separates each part from the one before it, and is itself in parts.
///
/// A part "name12" is an array of strings: the number of leading characters that a key shares with
/// the one before it, its numbers, a space, and the rest of the key. A directory "name-d0" is an
/// array of the number of its first part and the separators.
class IndexTable {
public:
    /// \param largestPart  the largest size of a part in bytes, but not of a directory
    /// \param addFile      must outlive the table
    IndexTable(std::string name, std::size_t largestPart, const AddFile& addFile);

    /// Adds a row, and returns the number of its part.
    /// \param key      not less than the key before it, in the order of code units
    /// \param numbers  written with appendNumber()
    /// \throws std::length_error  key and numbers do not fit into a part
    std::size_t add(std::u16string_view key, std::string_view numbers);

    /// Writes what is left. Returns the separators of the directories as a JSON array.
    std::string finish();

private:
    void setRow(std::size_t sharedCount, std::u16string_view key, std::string_view numbers);
    void startPart(std::u16string_view key);
    void finishPart();
    void finishDirectory();

    std::string name_;
    std::size_t largestPart_;
    const AddFile& addFile_;
    std::u16string lastKey_;
    std::string row_; // keeps its memory from one row to the next, because there are millions
    std::string rows_;
    std::size_t partCount_ = 0; // including the part that is being filled
    std::string separators_;
    std::size_t firstPart_ = 0; // of the directory that is being filled
    std::size_t directoryCount_ = 0;
    std::string directories_;
};

} // namespace refdoc::site
