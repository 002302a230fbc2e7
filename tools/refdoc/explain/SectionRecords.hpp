#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/explain/FileTexts.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// A record or the header of a section, where it stands in its file.
struct Origin {
    std::size_t file = 0;  ///< an index of LoadAccount::files
    std::string pointer{}; ///< JSON pointer to the element of "refItems", or to the section
    std::optional<reference::docparser::TextPlace> place{}; ///< absent: it is not there any more

    bool operator==(const Origin&) const = default;
};

/// One element of "refItems", by what tells it from others.
struct SourceRecord {
    std::u16string key{}; ///< what results are keyed by: its name; its href in full resources
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

/// The sections of a file that a retrieval has read, with the places of their records.
///
/// The places are found in one pass over the text, which is read again. If the file has changed
/// since the retrieval, records or places may be missing.
/// \param index  of the file in the account
/// \param key    keeps only the records of this key; absent: all
/// \returns      a section for each of the account's, in their order
std::vector<SourceSection> readSections(FileTexts& texts, std::size_t index,
                                        const std::optional<std::u16string>& key);

} // namespace refdoc
