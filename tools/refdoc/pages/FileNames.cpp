#include "tools/refdoc/pages/FileNames.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"

#include <boost/algorithm/string/predicate.hpp>
#include <boost/algorithm/string/split.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <vector>

namespace refdoc::site {

using fl::i18n::to_string;
using fl::i18n::to_ustring;

namespace {

// Systems store at least 255 bytes per name. This leaves room for a number.
constexpr std::size_t kLongestName = 200;
constexpr std::size_t kLongestPath = 1000;

bool isStorable(char character) {
    constexpr std::string_view kRefused = "\"*:<>?\\|";
    const auto byte = static_cast<unsigned char>(character);
    // '%' begins an encoded character, so it is encoded itself.
    return byte >= 0x20 && byte != 0x7F && character != '%' && character != '/' &&
           kRefused.find(character) == kRefused.npos;
}

// Windows takes these for devices, whatever the extension is.
bool isDevice(std::string_view name) {
    constexpr std::array<std::string_view, 4> kDevices{"aux", "con", "nul", "prn"};
    const std::string_view stem = name.substr(0, name.find('.'));
    const bool isPort = stem.size() == 4 && stem[3] >= '0' && stem[3] <= '9' &&
                        (boost::istarts_with(stem, "com") || boost::istarts_with(stem, "lpt"));
    return isPort || std::ranges::any_of(kDevices, [&](std::string_view device) {
               return boost::iequals(stem, device);
           });
}

void appendEncoded(char character, std::string& name) {
    name += fmt::format("%{:02X}", static_cast<unsigned char>(character));
}

void cutTo(std::size_t size, std::string& name) {
    if (name.size() <= size)
        return;
    while (size > 0 && (static_cast<unsigned char>(name[size]) & 0xC0U) == 0x80)
        --size;
    name.resize(size);
}

// Windows drops dots and spaces at the end, and "." and ".." name folders.
bool isRefusedAtEnd(char character) {
    return character == '.' || character == ' ';
}

std::string storable(std::string_view name) {
    std::string stored;
    for (std::size_t at = 0; at < name.size(); ++at) {
        const bool isRefused = !isStorable(name[at]) || (at == 0 && isDevice(name)) ||
                               (at + 1 == name.size() && isRefusedAtEnd(name[at]));
        if (isRefused)
            appendEncoded(name[at], stored);
        else
            stored += name[at];
        if (stored.size() > kLongestName)
            break;
    }
    cutTo(kLongestName, stored);
    return stored.empty() ? "_" : stored;
}

bool hasPageExtension(std::string_view name) {
    return boost::iends_with(name, ".html") || boost::iends_with(name, ".htm");
}

std::string storablePage(const std::string& name) {
    const std::string stored = storable(name);
    return hasPageExtension(stored) ? stored : stored + ".html";
}

std::string numbered(const std::string& path, std::size_t number, bool hasExtension) {
    const std::size_t end = hasExtension ? path.rfind('.') : path.size();
    return fmt::format("{}~{}{}", path.substr(0, end), number, path.substr(end));
}

std::u16string folded(const std::string& path) {
    std::u16string result;
    foldCase(to_ustring(path), result);
    return result;
}

} // namespace

FileNames::FileNames(std::initializer_list<std::string_view> reserved) {
    for (const std::string_view name : reserved)
        taken_.emplace(folded(std::string(name)), Use{Type::Folder});
}

std::string FileNames::addFolder(const std::u16string& name) {
    return take(storable(to_string(name)), Type::Folder);
}

std::string FileNames::addPage(const std::u16string& href) {
    std::vector<std::string> segments;
    boost::split(segments, to_string(href), [](char character) { return character == '/'; });
    const std::string page = storablePage(segments.back());
    segments.pop_back();
    std::string path;
    if (href.size() <= kLongestPath) {
        for (const std::string& segment : segments)
            path = take(path + storable(segment), Type::SharedFolder) + '/';
    }
    return take(path + page, Type::Page);
}

std::string FileNames::take(std::string path, Type type) {
    const auto [use, isNew] = taken_.try_emplace(folded(path), Use{type});
    if (isNew || (type == Type::SharedFolder && use->second.type == Type::SharedFolder))
        return path;
    for (;;) {
        std::string other = numbered(path, use->second.nextNumber++, type == Type::Page);
        if (taken_.try_emplace(folded(other), Use{type}).second)
            return other;
    }
}

} // namespace refdoc::site
