#include "docparser/parsing/LookupParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;
using enum StringParsingType;

namespace {

using Item = Members<Keys<"name", "refpurpose", "href", "type", "fcntype", "deprecated">>;

RefItemLookup readLookupItem(const Item& item, const std::u16string& name) {
    // The presence of the key decides: "deprecated": false marks the item as well.
    const bool isDeprecated = item.value<"deprecated">() != nullptr;
    return {name,         item.word<RefEntityType, "type">(), item.text<"refpurpose">(Utf8),
            isDeprecated, item.text<"href">(Ascii),           item.word<FunctionType, "fcntype">()};
}

} // namespace

DocResource<RefItemLookup> parseRefItemLookupSection(const json::value& section,
                                                     const std::u16string& product) {
    DocResource<RefItemLookup> result{getHeaderInfo(section, product), {}};
    for (const json::value& element : getJsonArray(section, "refItems")) {
        const Item item(element);
        const auto entry = result.items.try_emplace(item.text<"name">(Utf8)).first;
        entry->second.emplace_back(InPlace([&] { return readLookupItem(item, entry->first); }));
    }
    return result;
}

} // namespace reference::docparser
