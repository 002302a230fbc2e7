#pragma once

#include "tools/refdoc/html/HtmlWriter.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::html {

/// The same page in another language or, if there is none, the nearest page that leads to it.
struct LanguageLink {
    std::string language; ///< "de"
    std::string url;      ///< not needed for the current page
    bool isCurrent;
};

/// A step of the way from the start page to a page.
struct Crumb {
    std::u16string title;
    std::string url;
};

/// The search of a page, which needs the script.
struct SearchBox {
    std::string index{};   ///< the path to the folder of the index, with '/' at its end
    std::string pages{};   ///< the path to the folder that the pages in the index are in
    bool hasFocus = false; ///< when the page is opened
};

/// What surrounds the content of a page. URLs are relative to the page.
struct PageFrame {
    std::u16string title;
    std::string language; ///< of the records on the page
    std::string assets;   ///< the path from the page to the folder of the assets,
                          ///< with '/' at its end
    SearchBox search{};
    std::vector<Crumb> crumbs{};           ///< the start page first; empty on that page
    std::vector<LanguageLink> languages{}; ///< empty if there is only one
};

/// The language of the labels, in all pages.
inline constexpr std::string_view kLabelLanguage = "en";

/// The id of the element that has the content. Records may have anchors with any other name.
inline constexpr std::string_view kContentId = "refdoc-content";

/// The policy of each page. Its scripts may connect only to the server of the page.
inline constexpr std::string_view kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'";

/// Returns a complete page. Its policy allows only scripts, styles and pictures of the site itself,
/// so that nothing in a record could run even if it became markup.
std::string framedPage(const PageFrame& frame,
                       const std::function<void(HtmlWriter&)>& writeContent);

/// Returns the tag that HTML has for a language: "zh-CN" for "zh_CN".
std::string languageTag(std::string_view language);

/// Returns whether a language is written from right to left: "ar", "he", "az_Arab".
bool isRightToLeft(std::string_view language);

} // namespace refdoc::html
