#include "tools/refdoc/check/findings/ItemNames.hpp"

#include <algorithm>
#include <cstddef>

namespace refdoc::check {

namespace json = boost::json;

namespace {

constexpr std::string_view kItemsToken = "/refItems/";

// Returns an empty string if the value has no such string.
std::string_view stringAt(const json::value& value, std::string_view pointer) {
    json::error_code error;
    const json::value* found = value.find_pointer(pointer, error);
    return found && found->is_string() ? std::string_view(found->get_string()) : std::string_view();
}

std::string nameOf(const json::value& item) {
    for (const std::string_view pointer : {"/name", "/refentity/0/name", "/href"}) {
        const std::string_view name = stringAt(item, pointer);
        if (name.empty())
            continue;
        const std::string_view package = stringAt(item, "/packagename");
        return std::string(package).append(package.empty() ? "" : " ").append(name);
    }
    return {};
}

// Returns the part of the pointer that leads to an item; empty if it leads to none.
std::string_view itemPart(std::string_view pointer) {
    const std::size_t items = pointer.find(kItemsToken);
    return items == pointer.npos ? std::string_view()
                                 : pointer.substr(0, pointer.find('/', items + kItemsToken.size()));
}

bool isIndex(std::string_view token) {
    return !token.empty() && std::ranges::all_of(token, [](char character) {
        return character >= '0' && character <= '9';
    });
}

// Appends a token of a JSON pointer, in which '/' is "~1" and '~' is "~0".
void appendKey(std::string_view token, std::string& path) {
    for (std::size_t at = 0; at < token.size(); ++at) {
        const bool isEscape = token[at] == '~' && at + 1 < token.size();
        path += !isEscape ? token[at] : token[++at] == '1' ? '/' : '~';
    }
}

// Returns "inputs[2].name" for "/inputs/2/name".
std::string pathOf(std::string_view pointer) {
    std::string path;
    while (!pointer.empty()) {
        pointer.remove_prefix(1);
        const std::string_view token = pointer.substr(0, pointer.find('/'));
        pointer.remove_prefix(token.size());
        if (isIndex(token)) {
            path.append(1, '[').append(token).append(1, ']');
        } else {
            path.append(path.empty() ? "" : ".");
            appendKey(token, path);
        }
    }
    return path;
}

} // namespace

std::string itemNameAt(const json::value& document, std::string_view pointer) {
    json::error_code error;
    const std::string_view part = itemPart(pointer);
    const json::value* item = part.empty() ? nullptr : document.find_pointer(part, error);
    std::string name = item ? nameOf(*item) : std::string();
    if (!name.empty())
        pointer.remove_prefix(part.size());
    const std::string path = pathOf(pointer);
    return name.append(name.empty() || path.empty() ? "" : ", ").append(path);
}

} // namespace refdoc::check
