#include "docparser/retrieval/ResourceFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/retrieval/FileReport.hpp"
#include "docparser/retrieval/OverlayAccount.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "docparser/shared/Accounting.hpp"
#include "docparser/shared/Constants.hpp"
#include "platform/Failure.hpp"
#include "platform/path/Path.hpp"

#include <utility>

namespace reference::docparser {

using platform::failureOf;
using platform::ignoreFailure;
using property::RefItem;

namespace {

// \param localeSuffix  empty for the English file
std::optional<ResourceMap<RefItem>> readProductFile(const std::u16string& product,
                                                    const std::u16string& folder,
                                                    const std::u16string& localeSuffix) {
    std::u16string name = product + localeSuffix;
    name += kDotJsonExtension;
    const fl::filesystem::path file = fl::filesystem::path(folder) / name;

    std::optional<ResourceMap<RefItem>> sections;
    FileReport report(currentLoadAccount(), FileRole::Resources, file.string(), {},
                      !localeSuffix.empty());
    // A damaged file is as good as a missing one: the caller tries the next place.
    report.conclude(failureOf([&] {
        std::string text = openAndReadFile(file.string(), report.problem());
        report.keepText(text);
        sections = parseResourceText<RefItem>(std::move(text), product, parseRefItemSection,
                                              report.sections());
    }));
    return sections;
}

// Puts the sections of the language file over the English ones. Items are moved from map to map;
// only a section that the language file alone has is copied.
void overlay(ResourceMap<RefItem>& translated, ResourceMap<RefItem>& english,
             OverlayAccount account) {
    for (auto& [key, section] : translated) {
        const auto found = english.find(key);
        if (found == english.end()) {
            english.emplace(key, section);
            account.added(key);
            continue;
        }
        DocResource<RefItem>& target = found->second;
        section.items.merge(target.items);
        account.overlaid(key, target.items);
        target.header = std::move(section.header);
        target.items = std::move(section.items);
    }
}

} // namespace

std::optional<ResourceMap<RefItem>> getResourceDataAtRoot(const std::u16string& product,
                                                          const std::u16string& folder) {
    std::optional<ResourceMap<RefItem>> resources = readProductFile(product, folder, {});
    const std::u16string language = getCurrentLocale();
    if (language == kEnglish)
        return resources;

    std::optional<ResourceMap<RefItem>> translated =
        readProductFile(product, folder, makeLocaleSuffix(language));
    if (!translated)
        return resources;
    if (!resources)
        return translated;
    // Should memory end halfway, the sections overlaid so far stay.
    ignoreFailure([&] { overlay(*translated, *resources, OverlayAccount(currentLoadAccount())); });
    return resources;
}

} // namespace reference::docparser
