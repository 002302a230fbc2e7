#include "docparser/retrieval/ResourceText.hpp"

#include "docparser/parsing/DocumentParser.hpp"
#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/JsonAccess.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <cstddef>
#include <utility>

namespace reference::docparser {

namespace json = boost::json;

namespace {

constexpr std::size_t kFirstBlockBytes = 1024;

template <class T>
void insertSection(ResourceMap<T>& sections, std::u16string key, DocResource<T> section,
                   RetrievalObserver& observer) {
    const auto [entry, isNew] = sections.try_emplace(std::move(key), std::move(section));
    observer.sectionFound(entry->first, isNew);
}

template <class T>
ResourceMap<T> readSections(const json::value& root, const std::u16string& product,
                            SectionParser<T> parseSection, RetrievalObserver& observer) {
    ResourceMap<T> sections;
    DocResource<T> mainSection = parseSection(root, product);
    std::u16string helpFolder = mainSection.header.getHelpFolder();
    insertSection(sections, std::move(helpFolder), std::move(mainSection), observer);

    const json::value* supportPackages = getJsonObject(root).if_contains("supportPackages");
    if (!supportPackages)
        return sections;
    for (const json::value& element : getJsonArray(*supportPackages)) {
        DocResource<T> section = parseSection(element, product);
        std::u16string baseCode = section.header.getBaseCode();
        insertSection(sections, std::move(baseCode), std::move(section), observer);
    }
    return sections;
}

} // namespace

template <class T>
ResourceMap<T> parseResourceText(std::string text, const std::u16string& product,
                                 SectionParser<T> parseSection, RetrievalObserver& observer) {
    observer.fileRead(text);
    json::monotonic_resource arena(kFirstBlockBytes);
    const json::value root = parseDocument(text, arena);
    // The document has copies of its strings. clear() would not release the memory.
    std::string().swap(text);
    try {
        return readSections(root, product, parseSection, observer);
    } catch (FormatError& error) {
        error.locate(root);
        throw;
    }
}

template ResourceMap<property::RefItem> parseResourceText(std::string, const std::u16string&,
                                                          SectionParser<property::RefItem>,
                                                          RetrievalObserver&);
template ResourceMap<property::RefItemLookup>
parseResourceText(std::string, const std::u16string&, SectionParser<property::RefItemLookup>,
                  RetrievalObserver&);

} // namespace reference::docparser
