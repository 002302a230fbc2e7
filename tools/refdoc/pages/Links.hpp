#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <optional>
#include <string>

namespace refdoc::site {

/// Resolves the links in the records of one page.
class Links {
public:
    /// \param href  of the item that the page shows; links may be relative to it
    /// The arguments must outlive the object.
    Links(const Product& product, const Edition& edition, const std::u16string& section,
          const std::u16string& href);

    /// Returns the URL of the item that a link leads to, with the link's fragment; absent if it is
    /// not an item of the product. The items of the section come before those of other sections.
    /// Links are compared with the hrefs of items as they are, then relative to the page.
    std::optional<std::string> urlOf(const std::u16string& link) const;

private:
    // Returns null if the edition has no such item.
    const std::string* pageOf(const std::u16string& href) const;

    const Product& product_;
    const Edition& edition_;
    const std::u16string& section_;
    const std::u16string& href_;
    const std::string& page_;
};

} // namespace refdoc::site
