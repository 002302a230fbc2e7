#pragma once

#include "docparser/Queries.hpp"
#include "docparser/account/LoadAccount.hpp"

#include <map>
#include <string>
#include <utility>

namespace refdoc {

using LookupMap = reference::docparser::ResourceMap<reference::property::RefItemLookup>;
using LookupResults = reference::docparser::LookupIndex;

/// Tells which entries of the lookup index are English because no translation has them.
class EnglishEntries {
public:
    /// Nothing falls back to English.
    EnglishEntries() = default;

    /// \param account  of one retrieval of the index in a language other than English
    explicit EnglishEntries(const reference::docparser::LoadAccount& account);

    /// Returns whether all entries of a section are English.
    bool hasSection(const std::u16string& key) const;

    /// Returns whether an entry of a section is English.
    bool hasEntry(const std::u16string& key, const reference::property::RefItemLookup& entry) const;

private:
    using NameAndHref = std::pair<std::u16string, std::u16string>;

    // A section of the result. Most of its entries come from the file that has its header.
    struct Section {
        bool isTranslation = false;                 ///< the file with the header
        std::map<NameAndHref, bool> otherEntries{}; ///< whether their file is a translation
    };

    void add(const reference::docparser::LoadAccount& account, bool isTranslation,
             const reference::docparser::SectionAccount& added);

    std::map<std::u16string, Section> sections_;
};

/// The lookup index in the documentation language.
struct LookupIndex {
    LookupResults entries;
    EnglishEntries english;
};

/// Reads the lookup index.
/// \throws whatever the host services throw
LookupIndex readLookupIndex();

} // namespace refdoc
