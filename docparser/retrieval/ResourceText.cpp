#include "docparser/retrieval/ResourceText.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/JsonAccess.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "platform/system/NonStopArithmetic.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

#include <cstddef>
#include <utility>

namespace reference::docparser {

namespace json = boost::json;

namespace {

constexpr std::size_t kFirstBlockBytes = 1024;

json::value parseDocument(const std::string& text, json::monotonic_resource& arena) {
    const platform::NonStopArithmetic nonStop;
    return json::parse(text, &arena);
}

// Lists one section more; they come in file order, the main section first.
void listSection(SectionList* list, const std::u16string& key, bool isNew) {
    if (!list)
        return;
    std::string pointer;
    if (!list->empty())
        pointer = "/supportPackages/" + std::to_string(list->size() - 1);
    list->push_back({.key = key,
                     .pointer = std::move(pointer),
                     .fate = isNew ? SectionFate::Unused : SectionFate::KeyTaken});
}

template <class T>
ResourceMap<T> readSections(const json::value& root, const std::u16string& product,
                            SectionParser<T> parseSection, SectionList* list) {
    ResourceMap<T> sections;
    DocResource<T> mainSection = parseSection(root, product);
    std::u16string helpFolder = mainSection.header.getHelpFolder();
    const auto main = sections.try_emplace(std::move(helpFolder), std::move(mainSection));
    listSection(list, main.first->first, main.second);

    const json::value* supportPackages = getJsonObject(root).if_contains("supportPackages");
    if (!supportPackages)
        return sections;
    for (const json::value& element : getJsonArray(*supportPackages)) {
        DocResource<T> section = parseSection(element, product);
        std::u16string baseCode = section.header.getBaseCode();
        const auto [entry, isNew] = sections.try_emplace(std::move(baseCode), std::move(section));
        listSection(list, entry->first, isNew);
    }
    return sections;
}

} // namespace

template <class T>
ResourceMap<T> parseResourceText(std::string text, const std::u16string& product,
                                 SectionParser<T> parseSection, SectionList* list) {
    json::monotonic_resource arena(kFirstBlockBytes);
    const json::value root = parseDocument(text, arena);
    // The document has copies of its strings. Assigning an empty text would keep the buffer.
    std::string().swap(text);
    try {
        return readSections(root, product, parseSection, list);
    } catch (FormatError& error) {
        error.locate(root);
        throw;
    }
}

template ResourceMap<property::RefItem> parseResourceText(std::string, const std::u16string&,
                                                          SectionParser<property::RefItem>,
                                                          SectionList*);
template ResourceMap<property::RefItemLookup>
parseResourceText(std::string, const std::u16string&, SectionParser<property::RefItemLookup>,
                  SectionList*);

} // namespace reference::docparser
