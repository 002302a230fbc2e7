#include "docparser/parsing/LookupParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;

namespace {

// Appends one element of "refItems" to the items of its name.
void readLookupItem(const json::value& element, DocResource<RefItemLookup>::Items& items) {
    using enum StringParsingType;
    using Item = Members<Keys<"name", "refpurpose", "href", "type", "fcntype", "deprecated">>;

    const Item item(element);
    std::u16string name = item.text<"name">(Utf8);
    std::u16string refPurpose = item.text<"refpurpose">(Utf8);
    std::u16string href = item.text<"href">(Ascii);
    const RefEntityType::Value entityType = item.word<RefEntityType, "type">();
    const FunctionType::Value functionType = item.word<FunctionType, "fcntype">();
    // The presence of the key decides: "deprecated": false marks the item as well.
    const bool isDeprecated = item.value<"deprecated">() != nullptr;

    std::vector<RefItemLookup>& sameName = items[name];
    sameName.emplace_back(std::move(name), entityType, std::move(refPurpose), isDeprecated,
                          std::move(href), functionType);
}

} // namespace

DocResource<RefItemLookup> parseRefItemLookupSection(const json::value& section,
                                                     const std::u16string& product) {
    DocResource<RefItemLookup> result{getHeaderInfo(section, product), {}};
    for (const json::value& element : getJsonArray(section, "refItems"))
        readLookupItem(element, result.items);
    return result;
}

} // namespace reference::docparser
