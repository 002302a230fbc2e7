#include "tools/refdoc/session/HelpLinks.hpp"

#include <algorithm>
#include <cstddef>

namespace refdoc {

namespace {

// Appends a part to a path; ".." removes the last part instead.
void addPart(std::u16string_view part, std::u16string& path) {
    if (part == u".." && !path.empty()) {
        const std::size_t last = path.rfind(u'/');
        path.erase(last == path.npos ? 0 : last);
    } else if (!part.empty() && part != u".") {
        path.append(path.empty() ? u"" : u"/").append(part);
    }
}

} // namespace

std::u16string resolvedLink(std::u16string_view helpLocation, std::u16string_view link) {
    std::u16string result;
    result.reserve(helpLocation.size() + link.size() + 1);
    for (const std::u16string_view path : {helpLocation, link.substr(0, link.find(u'#'))}) {
        for (std::size_t start = 0; start <= path.size();) {
            const std::size_t end = std::min(path.find(u'/', start), path.size());
            addPart(path.substr(start, end - start), result);
            start = end + 1;
        }
    }
    return result;
}

bool leavesDocumentation(std::u16string_view link) {
    const std::size_t end = link.find_first_of(u":/#");
    return link.empty() || link.starts_with(u"//") || link.starts_with(u'#') ||
           (end != link.npos && link[end] == u':');
}

} // namespace refdoc
