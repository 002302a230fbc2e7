#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace refdoc {

/// The location of a record, or of the header of a section, in its file.
struct Origin {
    std::size_t file = 0;  ///< an index of LoadAccount::files
    std::string pointer{}; ///< JSON pointer to the element of "refItems", or to the section
    std::optional<reference::docparser::TextPlace> place{}; ///< absent: the file has changed

    bool operator==(const Origin&) const = default;
};

/// One element of "refItems", reduced to what distinguishes it from others.
struct SourceRecord {
    std::u16string key{}; ///< of the result's map: its name; in full resources its href
    std::u16string href{};
    std::u16string refPurpose{};
    Origin origin{};

    bool operator==(const SourceRecord&) const = default;
};

/// One section of a file.
struct SourceSection {
    Origin header{};
    std::vector<SourceRecord> records{}; ///< in file order
};

/// Returns the sections of a file that a retrieval has read, with the positions of their records,
/// which are found in one pass over the text. If the file has changed since the retrieval, records
/// or positions may be missing.
/// \param index  of the file in the account
/// \param text   the current content; empty if the file can no longer be read
/// \param key    returns only the records with this key; absent: all
/// \returns      a section for each of the account's, in their order
std::vector<SourceSection> readSections(const reference::docparser::FileAccount& file,
                                        std::size_t index, const std::string& text,
                                        const std::optional<std::u16string>& key);

/// Reads the sections of files as readSections() does, each file once: sections of a file that
/// several retrievals have used are copied from the first reading.
class SectionReader {
public:
    /// \param key  reads only the records with this key; absent: all
    explicit SectionReader(std::optional<std::u16string> key) : key_(std::move(key)) {}

    /// \param source  the file of the account, which has the index
    std::vector<SourceSection> read(const reference::docparser::FileAccount& file,
                                    std::size_t index, const SourceFile& source);

private:
    std::optional<std::u16string> key_;
    SourceTexts texts_;
    std::map<SourceFile, std::vector<SourceSection>> read_;
};

} // namespace refdoc
