#include "docparser/Queries.hpp"

#include "platform/i18n/Converter.hpp"

#include <algorithm>
#include <array>
#include <numeric>

namespace reference::docparser {

using property::RefItem;
using property::RefItemLookup;
using Tools = DocResourceParser::ParsingTools;

namespace {

constexpr std::size_t kUnitsPerEdit = 3;
constexpr std::size_t kMostEdits = 2;

bool isNear(std::u16string_view text, std::u16string_view name) {
    const std::size_t limit = std::min(text.size() / kUnitsPerEdit, kMostEdits);
    return limit > 0 && editDistance(text, name, limit) <= limit;
}

void addExactMatches(const ResourceMap<RefItemLookup>& sections, const std::u16string& name,
                     bool isInstalled, std::vector<IndexEntry>& entries) {
    for (const auto& [key, section] : sections) {
        const auto found = section.items.find(name);
        if (found == section.items.end())
            continue;
        for (const RefItemLookup& record : found->second)
            entries.push_back({&key, &section.header, &record, isInstalled});
    }
}

} // namespace

std::optional<NameMatch> matchName(std::u16string_view text, std::u16string_view name) {
    if (text.empty())
        return std::nullopt;
    const std::size_t position = name.find(text);
    if (position == 0)
        return name.size() == text.size() ? NameMatch::Exact : NameMatch::Prefix;
    if (position != name.npos)
        return NameMatch::Substring;
    return isNear(text, name) ? std::optional(NameMatch::Near) : std::nullopt;
}

std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit) {
    const std::size_t tooFar = limit + 1;
    if (std::max(left.size(), right.size()) - std::min(left.size(), right.size()) > limit)
        return tooFar;
    // Names of one product often begin alike.
    const auto prefix = std::ranges::mismatch(left, right).in1 - left.begin();
    left.remove_prefix(static_cast<std::size_t>(prefix));
    right.remove_prefix(static_cast<std::size_t>(prefix));

    // row[j] is the distance between the first i units of `left` and the first j of `right`.
    std::vector<std::size_t> row(right.size() + 1);
    std::vector<std::size_t> above = row;
    std::vector<std::size_t> twoAbove = row;
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        twoAbove.swap(above);
        above.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = above[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
            row[j] = std::min({replaced, row[j - 1] + 1, above[j] + 1});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1])
                row[j] = std::min(row[j], twoAbove[j - 2] + 1);
        }
        if (*std::ranges::min_element(row) > limit) // later rows have no smaller distances
            return tooFar;
    }
    return std::min(row.back(), tooFar);
}

std::vector<IndexEntry> findNames(const LookupIndex& index, std::u16string_view text,
                                  NameMatch loosest) {
    std::vector<IndexEntry> entries;
    if (text.empty())
        return entries;
    if (loosest == NameMatch::Exact) {
        const std::u16string name(text);
        addExactMatches(index.installed, name, true, entries);
        addExactMatches(index.notInstalled, name, false, entries);
        return entries;
    }
    std::array<std::vector<IndexEntry>, 4> matches; // by NameMatch
    forEachEntry(index, [&](const IndexEntry& entry) {
        const std::optional<NameMatch> match = matchName(text, entry.record->getName());
        if (match && *match <= loosest)
            matches.at(static_cast<std::size_t>(*match)).push_back(entry);
    });
    for (const std::vector<IndexEntry>& equallyGood : matches)
        entries.insert(entries.end(), equallyGood.begin(), equallyGood.end());
    return entries;
}

const RefItem* findItem(const ResourceMap<RefItem>& resources, const std::u16string& href) {
    for (const auto& [key, section] : resources) {
        if (const auto found = section.items.find(href); found != section.items.end())
            return &found->second.front();
    }
    return nullptr;
}

std::optional<RefItem> getItem(const std::u16string& product, const std::u16string& href) {
    const ResourceMap<RefItem> resources = DocResourceParser::getResourceFile(product);
    const RefItem* item = findItem(resources, href);
    return item ? std::optional(*item) : std::nullopt;
}

ProductLists getAllProducts(const std::u16string& folder) {
    return DocResourceParser::getAllProducts(folder, Tools::getSupportedDocLocales(),
                                             Tools::kLocaleSeparator + Tools::getCurrentLocale());
}

std::u16string fromUtf8(std::string_view name) {
    const fl::i18n::codecvt_string_to_ustring converter("utf8", /*replaceIllFormed=*/true);
    return converter.convert(name.data(), name.size());
}

std::string toUtf8(std::u16string_view name) {
    return fl::i18n::to_string(std::u16string(name));
}

std::u16string fromPath(const std::filesystem::path& path) {
    return path.u16string();
}

std::filesystem::path toPath(const std::u16string& path) {
    return path;
}

} // namespace reference::docparser
