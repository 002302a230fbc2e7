#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/explain/Origins.hpp"
#include "tools/refdoc/pages/ProductFindings.hpp"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace refdoc::site {

// What the pages of a site show. Paths are those of files below the folder of the site, in UTF-8,
// with '/' between names.

/// A language of the site. English comes first.
struct SiteLanguage {
    std::u16string code;
    std::string folder;   ///< of its pages: "de/"; empty for English
    std::string search{}; ///< the folder of its search index: "refdoc-site/search/de/"
};

using SiteLanguages = std::vector<SiteLanguage>;

/// A file that exists, but of which the library uses nothing.
struct BrokenFile {
    reference::docparser::FileAccount account{}; ///< its fate says why
    std::string text{};                          ///< the content; empty if it was not read
};

/// The records of a product in one language, with English ones where a translation lacks them, and
/// where they come from.
struct EditionContent {
    reference::docparser::ResourceMap<reference::property::RefItem> resources{};
    reference::docparser::LoadAccount account{};
    /// Where the records of each section come from. Its lost records are sorted by key.
    std::map<std::u16string, SectionOrigins> origins{};
    std::vector<BrokenFile> brokenFiles{};
};

/// A product in one language. Without resources, it is broken: nothing but its broken files can be
/// shown.
struct Edition {
    std::u16string language{};
    std::shared_ptr<const EditionContent> content{}; ///< shared by the languages without own files

    bool isBroken() const noexcept { return content->resources.empty(); }
};

/// The pages of a section, by href, in the folder of a language: "orchard/ref/smooth.html". Every
/// language has the same paths.
struct SectionPages {
    std::string index{}; ///< "orchard/index.html"
    std::map<std::u16string, std::string> items{};
    std::u16string displayName{}; ///< for editions that lack the section
};

/// A product in all languages of the site.
struct Product {
    std::vector<Edition> editions{}; ///< of the languages that have resources or broken files
    std::map<std::u16string, SectionPages> pages{}; ///< by section
    ProductFindings findings{};
};

/// A section in the list of the start page, in one language.
struct SectionSummary {
    std::u16string displayName{};
    bool isInstalled = false;
    bool isBroken = false; ///< in this language; see Edition
    std::size_t itemCount = 0;
    std::size_t deprecatedCount = 0;         ///< of the items, those with any status but None
    std::vector<std::u16string> languages{}; ///< those whose own file has the section
    std::string index{};                     ///< see SectionPages
    check::Summary findings{};               ///< of the product
};

/// Returns the path of the page of an item in the folder of a language; empty if there is none.
/// \param location  the item's resolvedLink()
using FindPageAt =
    std::function<std::string(const std::u16string& language, const std::u16string& location)>;

/// Returns whether an edition has an item that any edition has.
/// \param section  of the edition
/// \param pages    of the section
bool hasItem(const reference::docparser::DocResource<reference::property::RefItem>& section,
             const SectionPages& pages, const std::u16string& href);

/// Returns the page of an item, below the folder of a language; null if the edition has no such
/// item.
const std::string* pageOf(const Product& product, const Edition& edition,
                          const std::u16string& section, const std::u16string& href);

/// Returns whether the records of an item are English because no translation has them.
/// \param records  where the records come from; at least one
bool isFallback(const Edition& edition, const std::vector<SourceRecord>& records);

/// Returns the records with a link that the edition does not have.
std::span<const LostRecord> lostRecords(const Edition& edition, const std::u16string& section,
                                        const std::u16string& href);

/// Returns whether the file of the edition's own language has a section. If not, all of the section
/// is English.
bool hasOwnSection(const Edition& edition, const std::u16string& section);

} // namespace refdoc::site
