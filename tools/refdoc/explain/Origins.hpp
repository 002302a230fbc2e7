#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/explain/SectionRecords.hpp"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace refdoc {

/// A record of a file that the result does not have.
struct LostRecord {
    SourceRecord record;
    /// The decision about the record, or about its section if that was dropped as a whole.
    std::variant<reference::docparser::RecordFate, reference::docparser::SectionFate> fate;
    std::size_t winner = 0; ///< the file that it lost to; its own file if there is no other

    bool operator==(const LostRecord&) const = default;
};

/// A section of a file whose header the result does not have. The result may have its records.
struct LostHeader {
    Origin header;
    reference::docparser::SectionFate fate; ///< the decision about the section
    std::size_t winner = 0;                 ///< the file whose header the result has instead

    bool operator==(const LostHeader&) const = default;
};

/// Returns the word for a decision, such as "dropped-href" or "key-taken".
std::string_view toWord(const decltype(LostRecord::fate)& fate) noexcept;

/// Where one section of a result comes from.
struct SectionOrigins {
    std::u16string key{};
    bool isInstalled = false; ///< of lookups
    Origin header{};
    std::vector<LostHeader> lostHeaders{};                      ///< in the order of the decisions
    std::map<std::u16string, std::vector<SourceRecord>> kept{}; ///< as in the result
    std::vector<LostRecord> lost{};                             ///< in the order of the decisions
};

/// Follows the records of a retrieval through overlay and merge to the result.
/// \param account  of one retrieval
/// \param reader   reads the files of the account; only the records that it reads are followed
/// \returns        the sections of the result, installed ones first, then by key
std::vector<SectionOrigins> findOrigins(const reference::docparser::LoadAccount& account,
                                        SectionReader& reader);

/// The number of records of a result, by section and key.
using RecordCounts = std::map<std::pair<std::u16string, std::u16string>, std::size_t>;

/// Adds the records of a result.
/// \param key  counts only the records with this key; absent: all
template <class T>
void addCounts(const reference::docparser::ResourceMap<T>& sections,
               const std::optional<std::u16string>& key, RecordCounts& counts) {
    for (const auto& [sectionKey, section] : sections) {
        for (const auto& [name, records] : section.items) {
            if (!key || name == *key)
                counts[{sectionKey, name}] += records.size();
        }
    }
}

/// Expects that the records that were read again are those of the result.
/// \throws std::runtime_error  they are not, because files have changed
void expectCounts(const RecordCounts& expected, const std::vector<SectionOrigins>& sections);

} // namespace refdoc
