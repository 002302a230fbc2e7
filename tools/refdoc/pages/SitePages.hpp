#pragma once

#include "tools/refdoc/pages/SiteModel.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc::site {

// The pages of a site as HTML. The functions depend only on their arguments.

/// The folder of the files that all pages share, below that of the site.
inline constexpr std::string_view kAssetFolder = "refdoc-site";
inline constexpr std::string_view kIndexName = "index.html";

/// What `check` found in all files of a site.
struct StartFindings {
    check::Summary summary{};                     ///< of all findings
    std::vector<check::ReportedFinding> others{}; ///< those that are on no page of a product
};

/// Returns the start page in one language: the sections that are installed, then the others.
/// \param sections  in the order in which they are listed
std::string startPage(const SiteLanguages& languages, const SiteLanguage& language,
                      const std::vector<SectionSummary>& sections, const StartFindings& findings);

/// Returns the page of a section that the edition has: its broken files, its header and its items
/// by type.
std::string sectionPage(const SiteLanguages& languages, const Product& product,
                        const Edition& edition, const std::u16string& section);

/// Returns the page of a section in a broken edition: each broken file, what is wrong with it, and
/// the line with a marker below the position. It has the path of the section's own page, which it
/// stands in for. Only these members are needed:
///
///     const EditionContent content{.brokenFiles = {{account, text}}};
///     Product product{.editions = {{u"en", std::make_shared<const EditionContent>(content)}},
///                     .pages = {{u"orchard", {.index = "orchard/index.html",
///                                            .displayName = u"Orchard"}}}};
///     brokenPage(languages, product, product.editions.front(), u"orchard");
std::string brokenPage(const SiteLanguages& languages, const Product& product,
                       const Edition& edition, const std::u16string& section);

/// Returns the page of an item that the edition has in a section: the broken files of the edition,
/// and all records with the href, each with the files that it comes from. Where a record's own
/// links lead to an anchor, the page has an element with that id.
/// \param findPage  finds the items of other products that links lead to; without it, such links
///                  are text
std::string itemPage(const SiteLanguages& languages, const Product& product, const Edition& edition,
                     const std::u16string& section, const std::u16string& href,
                     const FindPageAt& findPage = {});

} // namespace refdoc::site
