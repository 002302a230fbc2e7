#pragma once

#include "docparser/Queries.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <boost/unordered/unordered_flat_map.hpp>

#include <functional>
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

    /// Returns the products that share a help location with another product, or have one above or
    /// below one of another product.
    std::set<std::u16string> neighbours() const;

private:
    using ProductAndSection = std::pair<std::u16string, std::u16string>;
    template <class Value>
    using HashMap = boost::unordered_flat_map<std::u16string, Value, std::hash<std::u16string>>;

    struct Pages {
        HashMap<std::string> paths{}; // by href
        // The hrefs that each language lacks. A language without an edition is absent: it has none.
        std::map<std::u16string, std::set<std::u16string>> missing{};
    };
    using Sections = std::map<std::u16string, Pages>;

    // Returns an empty path if the section or the language lacks the item.
    static std::string pageIn(const Sections& sections, const std::u16string& section,
                              const std::u16string& language, const std::u16string& href);

    HashMap<Sections> products_;
    // The products and sections of each help location.
    std::map<std::u16string, std::set<ProductAndSection>> locations_;
};

} // namespace refdoc::site
