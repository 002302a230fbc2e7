#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::html {

/// Returns the relative URL that leads from one page to another. It works for files as well as for
/// a server.
/// \param from      the path of a file below the folder of the site: "orchard/ref/smooth.html"
/// \param to        the same; if it is `from`, the URL consists of the file name
/// \param fragment  UTF-8; empty for the page itself
std::string relativeUrl(std::string_view from, std::string_view to, std::string_view fragment = {});

/// Returns the absolute URL of a page of the web, with characters that are not allowed in URLs
/// percent-encoded; absent if the scheme is not "http" or "https".
/// \param url  UTF-8
std::optional<std::string> webUrl(std::string_view url);

} // namespace refdoc::html
