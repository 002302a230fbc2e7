#include "tools/refdoc/html/Urls.hpp"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/replace.hpp>
#include <boost/url/encode.hpp>
#include <boost/url/rfc/pchars.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>

#include <algorithm>
#include <cstddef>

namespace refdoc::html {

namespace urls = boost::urls;

namespace {

// ':' is encoded too, so that no name looks like a scheme.
constexpr urls::grammar::lut_chars kPathChars = urls::unreserved_chars + '/';
constexpr urls::grammar::lut_chars kFragmentChars = urls::pchars + "/?";
constexpr urls::grammar::lut_chars kUrlChars = urls::pchars + "/?#[]";

// The length of the folders that two paths share, with the slash at their end.
std::size_t sharedFolders(std::string_view from, std::string_view to) {
    const auto [end, other] = std::ranges::mismatch(from, to);
    const std::string_view shared = from.substr(0, static_cast<std::size_t>(end - from.begin()));
    return shared.rfind('/') + 1; // 0 if there is no slash
}

} // namespace

std::string relativeUrl(std::string_view from, std::string_view to, std::string_view fragment) {
    const std::size_t shared = sharedFolders(from, to);
    std::string url;
    for (auto depth = std::ranges::count(from.substr(shared), '/'); depth > 0; --depth)
        url += "../";
    const std::string_view rest = to.substr(shared);
    if (std::ranges::all_of(rest, kPathChars))
        url += rest;
    else
        url += urls::encode(rest, kPathChars);
    if (!fragment.empty())
        url += '#' + urls::encode(fragment, kFragmentChars);
    return url;
}

std::optional<std::string> webUrl(std::string_view url) {
    if (!boost::istarts_with(url, "http://") && !boost::istarts_with(url, "https://"))
        return std::nullopt;
    // A '%' stays, because it usually begins an encoded character.
    std::string encoded = urls::encode(url, kUrlChars);
    boost::replace_all(encoded, "%25", "%");
    return encoded;
}

} // namespace refdoc::html
