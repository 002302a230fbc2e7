#include "docparser/retrieval/ResourceFiles.hpp"

#include "docparser/discovery/Locales.hpp"
#include "docparser/io/ResourceFileReader.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/retrieval/FileUse.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "docparser/shared/Constants.hpp"
#include "platform/path/Path.hpp"

#include <utility>

namespace reference::docparser {

using property::RefItem;

namespace {

using Resources = ResourceMap<RefItem>;

// \param localeSuffix  empty for the English file
std::u16string filePath(const std::u16string& product, const std::u16string& folder,
                        const std::u16string& localeSuffix) {
    std::u16string name = product + localeSuffix;
    name += kDotJsonExtension;
    return (fl::filesystem::path(folder) / name).string();
}

// Reads a product's file and passes its sections to `use`. Most products lack a translation, and
// an exception for each missing file would cost as much as parsing a small one.
template <class Use>
void useProductFile(const std::u16string& file, const std::u16string& product, bool isTranslation,
                    RetrievalObserver& observer, const Use& use) {
    useFile(FileRole::Resources, file, isTranslation, observer, [&] {
        if (std::optional<std::string> text = openAndReadFile(file, observer)) {
            Resources sections = parseResourceText<RefItem>(*std::move(text), product,
                                                            parseRefItemSection, observer);
            use(sections);
        }
    });
}

void useAlone(Resources& sections, std::optional<Resources>& result, RetrievalObserver& observer) {
    for (const auto& [key, section] : sections)
        observer.sectionPlaced(key, SectionFate::New, /*isInstalled=*/false);
    result = std::move(sections);
}

// Places the sections of the language file on top of the English ones. Items are moved from map to
// map; only a section that the English file lacks is copied.
void overlay(Resources& translated, Resources& english, RetrievalObserver& observer) {
    for (auto& [key, section] : translated) {
        const auto [found, isNew] = english.try_emplace(key, section);
        if (isNew) {
            observer.sectionPlaced(key, SectionFate::New, /*isInstalled=*/false);
            continue;
        }
        DocResource<RefItem>& target = found->second;
        observer.sectionPlaced(key, SectionFate::Overlay, /*isInstalled=*/false);
        section.items.merge(target.items);
        for (const auto& [href, items] : target.items)
            observer.itemReplaced(href);
        target.header = std::move(section.header);
        target.items = std::move(section.items);
    }
}

} // namespace

std::optional<Resources> getResourceDataAtRoot(const std::u16string& product,
                                               const std::u16string& folder,
                                               RetrievalObserver& observer) {
    std::optional<Resources> resources;
    const std::u16string englishFile = filePath(product, folder, {});
    useProductFile(englishFile, product, /*isTranslation=*/false, observer,
                   [&](Resources& sections) { useAlone(sections, resources, observer); });

    const std::u16string language = getCurrentLocale();
    if (language == kEnglish)
        return resources;

    const std::u16string languageFile = filePath(product, folder, makeLocaleSuffix(language));
    useProductFile(languageFile, product, /*isTranslation=*/true, observer,
                   [&](Resources& sections) {
                       if (resources)
                           overlay(sections, *resources, observer);
                       else
                           useAlone(sections, resources, observer);
                   });
    return resources;
}

} // namespace reference::docparser
