#include "docparser/parsing/ItemPartReaders.hpp"

#include "docparser/parsing/Members.hpp"

#include <string_view>
#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;
using enum StringParsingType;

namespace {

// Returns the link to an anchor on the item's page, in one allocation.
std::u16string makeLink(const std::u16string& href, std::u16string_view separator,
                        const std::u16string& anchor) {
    std::u16string link;
    link.reserve(href.size() + separator.size() + anchor.size());
    link.append(href).append(separator).append(anchor);
    return link;
}

// An input, an output or a parameter. Each uses only some of the keys.
using Argument = Members<
    Keys<"name", "purpose", "value", "htmlid", "defaultvalue", "syntaxtype", "namevaluepairs">>;

// A group of inputs, or an element that only contains such groups under "namevaluepairs".
using GroupOfInputs = Members<Keys<"title", "inputs", "namevaluepairs">>;

ObjectInfo readObjectInfo(const Argument& argument, const std::u16string& href,
                          StringParsingType nameType) {
    std::u16string link = makeLink(href, u"#", argument.optionalText<"htmlid">(Ascii));
    return {argument.text<"name">(nameType), argument.text<"purpose">(Utf8),
            readTexts(argument.value<"value">(), Utf8), std::move(link)};
}

// How the inputs of one item are read.
struct InputStyle {
    const std::u16string& href;
    StringParsingType nameType;
    bool isNameValuePair;
};

Input readInput(const Argument& input, const InputStyle& style) {
    std::u16string defaultValue = input.optionalText<"defaultvalue">(Utf8);
    return {readObjectInfo(input, style.href, style.nameType),
            input.word<SyntaxType, "syntaxtype">(), std::move(defaultValue), style.isNameValuePair};
}

InputGroup readInputGroup(const GroupOfInputs& group, const InputStyle& style) {
    std::vector<Input> inputs = readEach(group.value<"inputs">(), [&](const json::value& input) {
        return readInput(Argument(input), style);
    });
    return {group.text<"title">(Utf8), std::move(inputs)};
}

// Reserves memory for `count` more records. The capacity at least doubles when it grows, so that an
// item with many small blocks of name-value pairs does not move its records for each block.
template <class Record>
void reserveMore(std::vector<Record>& records, std::size_t count) {
    const std::size_t needed = records.size() + std::min(count, kMostReserved);
    if (needed > records.capacity())
        records.reserve(std::max(needed, 2 * records.capacity()));
}

ClassProperty readClassProperty(const json::value& element, const std::u16string& href,
                                StringParsingType nameType) {
    const Members<Keys<"name", "purpose", "value", "defaultvalue">> property(element);
    std::u16string name = property.text<"name">(nameType);
    std::u16string link = makeLink(href, u"#prop_", name);
    return {ObjectInfo{std::move(name), property.text<"purpose">(Utf8),
                       readTexts(property.value<"value">(), Utf8), std::move(link)},
            property.optionalText<"defaultvalue">(Utf8)};
}

} // namespace

RefEntities readRefEntities(const json::value* refentity) {
    using Entity = Members<Keys<"type", "fcntype", "name">>;

    RefEntities result;
    result.entities = readEach(refentity, [&](const json::value& element) {
        const Entity entity(element);
        const RefEntityType::Value entityType = entity.word<RefEntityType, "type">();
        result.hasComponent |= entityType == RefEntityType::Component;
        return RefEntity{entityType, entity.text<"name">(Utf8),
                         entity.word<FunctionType, "fcntype">()};
    });
    return result;
}

AppThumbnail readAppThumbnail(const json::value* appthumbnail) {
    if (!appthumbnail)
        return {{}, {}};
    const Members<Keys<"fileref", "alt">> thumbnail(*appthumbnail);
    return {thumbnail.text<"fileref">(Ascii), thumbnail.text<"alt">(Utf8)};
}

std::vector<SyntaxGroup> readSyntaxGroups(const json::value* syntaxgroup) {
    return readEach(syntaxgroup, [](const json::value& element) {
        const Members<Keys<"syntaxtype", "title", "syntax">> group(element);
        return SyntaxGroup{group.text<"title">(Utf8), group.word<SyntaxType, "syntaxtype">(),
                           readTexts(group.value<"syntax">(), Ascii)};
    });
}

std::vector<Input> readInputs(const json::value* inputs, const std::u16string& href,
                              StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};
    const auto append = [](const Argument& input, const InputStyle& style,
                           std::vector<Input>& result) {
        result.emplace_back(InPlace([&] { return readInput(input, style); }));
    };

    return appendEach<Input>(inputs, [&](const json::value& element, std::vector<Input>& result) {
        const Argument input(element);
        const json::value* namevaluepairs = input.value<"namevaluepairs">();
        if (!namevaluepairs)
            return append(input, plain, result);
        const json::array& pairs = getJsonArray(*namevaluepairs);
        reserveMore(result, pairs.size());
        for (const json::value& nameAndValue : pairs)
            append(Argument(nameAndValue), pair, result);
    });
}

std::vector<InputGroup> readInputGroups(const json::value* inputgroup, const std::u16string& href,
                                        StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};

    return appendEach<InputGroup>(
        inputgroup, [&](const json::value& element, std::vector<InputGroup>& groups) {
            const GroupOfInputs group(element);
            const json::value* namevaluepairs = group.value<"namevaluepairs">();
            if (!namevaluepairs)
                return groups.push_back(readInputGroup(group, plain));
            for (const json::value& groupOfPairs : getJsonArray(*namevaluepairs))
                groups.push_back(readInputGroup(GroupOfInputs(groupOfPairs), pair));
        });
}

std::vector<Output> readOutputs(const json::value* outputs, const std::u16string& href) {
    return readEach(outputs, [&](const json::value& element) {
        const Argument output(element);
        return Output{readObjectInfo(output, href, Utf8), output.word<SyntaxType, "syntaxtype">()};
    });
}

std::vector<ClassPropertyGroup> readClassPropertyGroups(const json::value* classpropertygroup,
                                                        const std::u16string& href,
                                                        StringParsingType nameType) {
    return readEach(classpropertygroup, [&](const json::value& element) {
        const Members<Keys<"title", "classproperty">> group(element);
        return ClassPropertyGroup{
            group.optionalText<"title">(Utf8),
            readEach(group.value<"classproperty">(), [&](const json::value& property) {
                return readClassProperty(property, href, nameType);
            })};
    });
}

std::vector<SeeAlso> readSeeAlso(const json::value* seealso) {
    return readEach(seealso, [](const json::value& element) {
        const Members<Keys<"url", "name">> link(element);
        return SeeAlso{link.text<"url">(Ascii), link.text<"name">(Utf8)};
    });
}

std::vector<Example> readExamples(const json::value* examples) {
    return readEach(examples, [](const json::value& element) {
        const Members<Keys<"url", "open_command", "title">> example(element);
        return Example{example.text<"url">(Ascii), example.text<"open_command">(Ascii),
                       example.text<"title">(Utf8)};
    });
}

std::vector<Parameter> readParameters(const json::value* parameters, const std::u16string& href) {
    return readEach(parameters, [&](const json::value& element) {
        const Argument parameter(element);
        std::u16string defaultValue = parameter.optionalText<"defaultvalue">(Utf8);
        return Parameter{readObjectInfo(parameter, href, Utf8), std::move(defaultValue)};
    });
}

} // namespace reference::docparser
