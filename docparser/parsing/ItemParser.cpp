#include "docparser/parsing/ItemParser.hpp"

#include "docparser/parsing/HeaderParser.hpp"
#include "docparser/parsing/ItemPartReaders.hpp"
#include "docparser/parsing/Members.hpp"

#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;

namespace {

// Reads one element of "refItems" behind the items that have its href already.
void readItem(const json::value& element, DocResource<RefItem>::Items& items) {
    using enum StringParsingType;
    enum {
        Href,
        Purpose,
        Entities,
        PackageName,
        Introduced,
        Description,
        Thumbnail,
        Deprecation,
        Syntaxes,
        Inputs,
        Groups,
        Outputs,
        Properties,
        Links,
        Examples,
        Parameters
    };
    static constexpr auto kKeys =
        keys("href", "refpurpose", "refentity", "packagename", "introduced", "description",
             "appthumbnail", "deprecationstatus", "syntaxgroup", "inputs", "inputgroup", "outputs",
             "classpropertygroup", "seealso", "examples", "parameters");

    const Members item(element, kKeys);
    std::u16string href = item.text(Href, Ascii);
    std::u16string refPurpose = item.text(Purpose, Utf8);
    RefEntities refEntities = readRefEntities(item[Entities]);
    const StringParsingType nameType = refEntities.hasComponent ? Utf8 : Ascii;
    std::u16string packageName = item.optionalText(PackageName, Ascii);
    std::u16string introduced = item.optionalText(Introduced, Ascii);
    std::u16string description = item.optionalText(Description, Utf8);
    AppThumbnail appThumbnail = readAppThumbnail(item[Thumbnail]);
    const DeprecationStatus::Value status = item.word<DeprecationStatus>(Deprecation);
    std::vector<SyntaxGroup> syntaxGroups = readSyntaxGroups(item[Syntaxes]);
    std::vector<Input> inputs = readInputs(item[Inputs], href, nameType);
    std::vector<InputGroup> inputGroups = readInputGroups(item[Groups], href, nameType);
    std::vector<Output> outputs = readOutputs(item[Outputs], href);
    std::vector<ClassPropertyGroup> propertyGroups =
        readClassPropertyGroups(item[Properties], href, nameType);
    std::vector<SeeAlso> seeAlso = readSeeAlso(item[Links]);
    std::vector<Example> examples = readExamples(item[Examples]);
    std::vector<Parameter> parameters = readParameters(item[Parameters], href);

    std::vector<RefItem>& sameHref = items[href];
    sameHref.emplace_back(std::move(href), std::move(refEntities.entities), std::move(packageName),
                          std::move(refPurpose), std::move(introduced), std::move(description),
                          std::move(appThumbnail), status, std::move(syntaxGroups),
                          std::move(inputs), std::move(inputGroups), std::move(outputs),
                          std::move(propertyGroups), std::move(seeAlso), std::move(examples),
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
