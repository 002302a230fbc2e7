#pragma once

#include "tools/refdoc/pages/FileNames.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace refdoc::site {

/// Chooses the languages of a site, and the paths of all its pages.
class SitePaths {
public:
    /// Makes a site in all languages of the current host services.
    /// \throws whatever the host services throw
    SitePaths();

    const SiteLanguages& languages() const noexcept { return languages_; }

    /// Sets the pages of a product: those of the sections that any edition has. A section that was
    /// passed before keeps its folder. If all editions are broken, the sections are those from
    /// before, or the one of the lookup index, or one with the name of the product.
    /// \param name  of the product's file
    /// \throws whatever the host services throw
    void choose(const std::u16string& name, Product& product);

private:
    using SectionNames = std::map<std::u16string, std::u16string>; // display names by key

    std::pair<std::u16string, std::u16string> lookupSectionOf(const std::u16string& product);

    FileNames names_; // of the folder of the site
    SiteLanguages languages_;
    std::map<std::u16string, SectionNames> sections_; // of each product, when it was last readable
    std::map<std::pair<std::u16string, std::u16string>, std::string> folders_; // "orchard/"
    // The sections of the lookup index by product, when they are needed.
    std::optional<std::map<std::u16string, std::pair<std::u16string, std::u16string>>>
        lookupSections_;
};

} // namespace refdoc::site
