#include "docparser/parsing/LookupParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;

namespace {

// Reads one element of "refItems" behind the items that have its name already.
void readLookupItem(const json::value& element, DocResource<RefItemLookup>::Items& items) {
    using enum StringParsingType;
    enum { Name, Purpose, Href, Type, FcnType, Deprecated };
    static constexpr auto kKeys =
        keys("name", "refpurpose", "href", "type", "fcntype", "deprecated");

    const Members item(element, kKeys);
    std::u16string name = item.text(Name, Utf8);
    std::u16string refPurpose = item.text(Purpose, Utf8);
    std::u16string href = item.text(Href, Ascii);
    const RefEntityType::Value entityType = item.word<RefEntityType>(Type);
    const FunctionType::Value functionType = item.word<FunctionType>(FcnType);
    // The key alone marks the item, even "deprecated": false.
    const bool isDeprecated = item[Deprecated] != nullptr;

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
