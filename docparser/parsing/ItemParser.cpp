#include "docparser/parsing/ItemParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/ItemPartReaders.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;
using enum StringParsingType;

namespace {

using Item =
    Members<Keys<"href", "refpurpose", "refentity", "packagename", "introduced", "description",
                 "appthumbnail", "deprecationstatus", "syntaxgroup", "inputs", "inputgroup",
                 "outputs", "classpropertygroup", "seealso", "examples", "parameters">>;

RefItem readItem(const Item& item, const std::u16string& href) {
    std::u16string refPurpose = item.text<"refpurpose">(Utf8);
    RefEntities refEntities = readRefEntities(item.value<"refentity">());
    const StringParsingType nameType = refEntities.hasComponent ? Utf8 : Ascii;
    // Braces guarantee evaluation from left to right, so that the first error is the one reported.
    return {href,
            std::move(refEntities.entities),
            item.optionalText<"packagename">(Ascii),
            std::move(refPurpose),
            item.optionalText<"introduced">(Ascii),
            item.optionalText<"description">(Utf8),
            readAppThumbnail(item.value<"appthumbnail">()),
            item.word<DeprecationStatus, "deprecationstatus">(),
            readSyntaxGroups(item.value<"syntaxgroup">()),
            readInputs(item.value<"inputs">(), href, nameType),
            readInputGroups(item.value<"inputgroup">(), href, nameType),
            readOutputs(item.value<"outputs">(), href),
            readClassPropertyGroups(item.value<"classpropertygroup">(), href, nameType),
            readSeeAlso(item.value<"seealso">()),
            readExamples(item.value<"examples">()),
            readParameters(item.value<"parameters">(), href)};
}

} // namespace

DocResource<RefItem> parseRefItemSection(const json::value& section,
                                         const std::u16string& product) {
    DocResource<RefItem> result{getHeaderInfo(section, product), {}};
    for (const json::value& element : getJsonArray(section, "refItems")) {
        const Item item(element);
        const auto entry = result.items.try_emplace(item.text<"href">(Ascii)).first;
        entry->second.emplace_back(InPlace([&] { return readItem(item, entry->first); }));
    }
    return result;
}

} // namespace reference::docparser
