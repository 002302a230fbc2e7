#pragma once

#include "docparser/Queries.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace refdoc::site {

/// Finds the pages of entries of the lookup index, after their products have been read.
class PageDirectory {
public:
    /// Remembers the pages of a product in place of those from before.
    /// \param name  of its resource file
    void add(const std::u16string& name, const Product& product);

    /// Returns the path of the page of an entry in the folder of a language; empty if its product
    /// has no such item. The section of the entry comes before the other sections.
    std::string pageOf(const std::u16string& language,
                       const reference::docparser::IndexEntry& entry) const;

    /// Returns the same for the item at a location; see FindPageAt.
    std::string pageAt(const std::u16string& language, const std::u16string& location) const;

private:
    using ProductAndSection = std::pair<std::u16string, std::u16string>;
    using HrefsBySection = std::map<std::u16string, std::set<std::u16string>>;

    struct ProductPages {
        std::map<std::u16string, SectionPages> sections{};
        // What each language lacks of these pages. A language without an edition has none.
        std::map<std::u16string, HrefsBySection> missing{};
    };

    // Returns an empty path if the language lacks the item.
    static std::string pageIn(const ProductPages& product, const std::u16string& language,
                              const std::u16string& section, const std::u16string& href);

    std::map<std::u16string, ProductPages> products_;
    // The products and sections of each help location.
    std::map<std::u16string, std::set<ProductAndSection>> locations_;
};

} // namespace refdoc::site
