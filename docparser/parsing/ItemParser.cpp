#include "docparser/parsing/ItemParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/ItemPartReaders.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;

namespace {

// Appends one element of "refItems" to the items of its href.
void readItem(const json::value& element, DocResource<RefItem>::Items& items) {
    using enum StringParsingType;
    using Item =
        Members<Keys<"href", "refpurpose", "refentity", "packagename", "introduced", "description",
                     "appthumbnail", "deprecationstatus", "syntaxgroup", "inputs", "inputgroup",
                     "outputs", "classpropertygroup", "seealso", "examples", "parameters">>;

    const Item item(element);
    std::u16string href = item.text<"href">(Ascii);
    std::u16string refPurpose = item.text<"refpurpose">(Utf8);
    RefEntities refEntities = readRefEntities(item.value<"refentity">());
    const StringParsingType nameType = refEntities.hasComponent ? Utf8 : Ascii;
    std::u16string packageName = item.optionalText<"packagename">(Ascii);
    std::u16string introduced = item.optionalText<"introduced">(Ascii);
    std::u16string description = item.optionalText<"description">(Utf8);
    AppThumbnail appThumbnail = readAppThumbnail(item.value<"appthumbnail">());
    const DeprecationStatus::Value status = item.word<DeprecationStatus, "deprecationstatus">();
    std::vector<SyntaxGroup> syntaxGroups = readSyntaxGroups(item.value<"syntaxgroup">());
    std::vector<Input> inputs = readInputs(item.value<"inputs">(), href, nameType);
    std::vector<InputGroup> inputGroups =
        readInputGroups(item.value<"inputgroup">(), href, nameType);
    std::vector<Output> outputs = readOutputs(item.value<"outputs">(), href);
    std::vector<ClassPropertyGroup> classPropertyGroups =
        readClassPropertyGroups(item.value<"classpropertygroup">(), href, nameType);
    std::vector<SeeAlso> seeAlso = readSeeAlso(item.value<"seealso">());
    std::vector<Example> examples = readExamples(item.value<"examples">());
    std::vector<Parameter> parameters = readParameters(item.value<"parameters">(), href);

    std::vector<RefItem>& sameHref = items[href];
    sameHref.emplace_back(std::move(href), std::move(refEntities.entities), std::move(packageName),
                          std::move(refPurpose), std::move(introduced), std::move(description),
                          std::move(appThumbnail), status, std::move(syntaxGroups),
                          std::move(inputs), std::move(inputGroups), std::move(outputs),
                          std::move(classPropertyGroups), std::move(seeAlso), std::move(examples),
                          std::move(parameters));
}

} // namespace

DocResource<RefItem> parseRefItemSection(const json::value& section,
                                         const std::u16string& product) {
    DocResource<RefItem> result{getHeaderInfo(section, product), {}};
    for (const json::value& element : getJsonArray(section, "refItems"))
        readItem(element, result.items);
    return result;
}

} // namespace reference::docparser
