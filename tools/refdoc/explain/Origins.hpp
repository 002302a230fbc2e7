#pragma once

#include "tools/refdoc/explain/SectionRecords.hpp"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// A record that a section of a file has and the result has not.
struct LostRecord {
    SourceRecord record;
    std::string_view rule; ///< a word of RecordFate, or of SectionFate when the section was dropped
    std::size_t winner = 0; ///< the file that it lost to; its own when no other file is to blame

    bool operator==(const LostRecord&) const = default;
};

/// A section of a file whose header the result has not; its records may be there all the same.
struct LostHeader {
    Origin header;
    std::string_view rule;  ///< the word of the SectionFate that decided
    std::size_t winner = 0; ///< the file whose header the result has instead

    bool operator==(const LostHeader&) const = default;
};

/// Where one section of a result comes from.
struct SectionOrigins {
    std::u16string key{};
    bool isInstalled = false; ///< of lookups
    Origin header{};
    std::vector<LostHeader> lostHeaders{};                      ///< in the order of the decisions
    std::map<std::u16string, std::vector<SourceRecord>> kept{}; ///< as the result has them
    std::vector<LostRecord> lost{};                             ///< in the order of the decisions
};

/// Follows the records of a retrieval through overlay and merge to the result.
/// \param account  of one retrieval
/// \param key      follows only the records of this key; absent: all
/// \returns        the sections of the result, installed ones first, then by key
std::vector<SectionOrigins> findOrigins(const reference::docparser::LoadAccount& account,
                                        const std::optional<std::u16string>& key);

} // namespace refdoc
