#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::site {

/// How far a link may lead within the documentation.
enum class Reach {
    Product,      ///< to an item of its product, or to none
    HelpLocation, ///< to no item of its product, but below the help location of the section
    Everywhere    ///< to the items of other products
};

/// Resolves the links in the records of one page.
class Links {
public:
    /// \param href    of the item that the page shows; links may be relative to it
    /// \param findPage  finds the items of other products; may be empty
    /// The arguments must outlive the object.
    Links(const Product& product, const Edition& edition, const std::u16string& section,
          const std::u16string& href, const FindPageAt& findPage);

    /// Returns the URL of the item that a link leads to, with the link's fragment; absent if there
    /// is none. Links are compared with the hrefs of the section, then of the other sections of the
    /// product: first as they are, then relative to the page. After that, they are relative to the
    /// help location of the section, and may lead to any product.
    std::optional<std::string> urlOf(const std::u16string& link) const;

    Reach reachOf(const std::u16string& link) const;

private:
    struct Target {
        const std::string* page;
        std::u16string_view fragment; // of the link
    };

    const std::u16string& helpLocation() const;
    // Returns null if the edition has no such item.
    const std::string* pageOf(const std::u16string& href) const;
    // Returns absent if the link leads to no item of the product.
    std::optional<Target> targetOf(const std::u16string& link) const;

    const Product& product_;
    const Edition& edition_;
    const std::u16string& section_;
    const std::u16string& href_;
    const FindPageAt& findPage_;
};

/// Returns how far the links and examples of an item may lead.
Reach reachOfLinks(const Product& product, const Edition& edition, const std::u16string& section,
                   const std::u16string& href);

} // namespace refdoc::site
