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

// A group of inputs, or an element that only holds such groups under "namevaluepairs".
using GroupOfInputs = Members<Keys<"title", "inputs", "namevaluepairs">>;

ObjectInfo makeObjectInfo(std::u16string name, const json::value& purpose,
                          const json::value* values, std::u16string link) {
    std::u16string purposeText = getFluString(purpose, Utf8);
    return {std::move(name), std::move(purposeText), readTexts(values, Utf8), std::move(link)};
}

ObjectInfo readObjectInfo(const Argument& argument, const std::u16string& href,
                          StringParsingType nameType) {
    std::u16string link = makeLink(href, u"#", argument.optionalText<"htmlid">(Ascii));
    std::u16string name = argument.text<"name">(nameType);
    return makeObjectInfo(std::move(name), argument.required<"purpose">(),
                          argument.value<"value">(), std::move(link));
}

// How the inputs of one item are read.
struct InputStyle {
    const std::u16string& href;
    StringParsingType nameType;
    bool isNameValuePair;
};

void appendInput(const Argument& input, const InputStyle& style, std::vector<Input>& inputs) {
    std::u16string defaultValue = input.optionalText<"defaultvalue">(Utf8);
    const SyntaxType::Value syntaxType = input.word<SyntaxType, "syntaxtype">();
    inputs.emplace_back(readObjectInfo(input, style.href, style.nameType), syntaxType,
                        std::move(defaultValue), style.isNameValuePair);
}

InputGroup readInputGroup(const GroupOfInputs& group, const InputStyle& style) {
    std::vector<Input> inputs = readEach<Input>(
        group.value<"inputs">(), [&](const json::value& input, std::vector<Input>& result) {
            appendInput(Argument(input), style, result);
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

std::vector<ClassProperty> readClassProperties(const json::value* classproperty,
                                               const std::u16string& href,
                                               StringParsingType nameType) {
    using Property = Members<Keys<"name", "purpose", "value", "defaultvalue">>;

    return readEach<ClassProperty>(classproperty, [&](const json::value& element,
                                                      std::vector<ClassProperty>& properties) {
        const Property property(element);
        std::u16string name = property.text<"name">(nameType);
        std::u16string link = makeLink(href, u"#prop_", name);
        ObjectInfo objectInfo = makeObjectInfo(std::move(name), property.required<"purpose">(),
                                               property.value<"value">(), std::move(link));
        properties.emplace_back(std::move(objectInfo), property.optionalText<"defaultvalue">(Utf8));
    });
}

} // namespace

RefEntities readRefEntities(const json::value* refentity) {
    using Entity = Members<Keys<"type", "fcntype", "name">>;

    RefEntities result;
    result.entities = readEach<RefEntity>(
        refentity, [&](const json::value& element, std::vector<RefEntity>& entities) {
            const Entity entity(element);
            const RefEntityType::Value entityType = entity.word<RefEntityType, "type">();
            const FunctionType::Value functionType = entity.word<FunctionType, "fcntype">();
            result.hasComponent |= entityType == RefEntityType::Component;
            entities.emplace_back(entityType, entity.text<"name">(Utf8), functionType);
        });
    return result;
}

AppThumbnail readAppThumbnail(const json::value* appthumbnail) {
    if (!appthumbnail)
        return {{}, {}};
    const Members<Keys<"fileref", "alt">> thumbnail(*appthumbnail);
    std::u16string fileRef = thumbnail.text<"fileref">(Ascii);
    return {std::move(fileRef), thumbnail.text<"alt">(Utf8)};
}

std::vector<SyntaxGroup> readSyntaxGroups(const json::value* syntaxgroup) {
    using Group = Members<Keys<"syntaxtype", "title", "syntax">>;

    return readEach<SyntaxGroup>(
        syntaxgroup, [](const json::value& element, std::vector<SyntaxGroup>& groups) {
            const Group group(element);
            const SyntaxType::Value syntaxType = group.word<SyntaxType, "syntaxtype">();
            std::u16string title = group.text<"title">(Utf8);
            groups.emplace_back(std::move(title), syntaxType,
                                readTexts(group.value<"syntax">(), Ascii));
        });
}

std::vector<Input> readInputs(const json::value* inputs, const std::u16string& href,
                              StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};

    return readEach<Input>(inputs, [&](const json::value& element, std::vector<Input>& result) {
        const Argument input(element);
        const json::value* namevaluepairs = input.value<"namevaluepairs">();
        if (!namevaluepairs)
            return appendInput(input, plain, result);
        const json::array& pairs = getJsonArray(*namevaluepairs);
        reserveMore(result, pairs.size());
        for (const json::value& nameAndValue : pairs)
            appendInput(Argument(nameAndValue), pair, result);
    });
}

std::vector<InputGroup> readInputGroups(const json::value* inputgroup, const std::u16string& href,
                                        StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};

    return readEach<InputGroup>(
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
    return readEach<Output>(outputs, [&](const json::value& element, std::vector<Output>& result) {
        const Argument output(element);
        const SyntaxType::Value syntaxType = output.word<SyntaxType, "syntaxtype">();
        result.emplace_back(readObjectInfo(output, href, Utf8), syntaxType);
    });
}

std::vector<ClassPropertyGroup> readClassPropertyGroups(const json::value* classpropertygroup,
                                                        const std::u16string& href,
                                                        StringParsingType nameType) {
    using Group = Members<Keys<"title", "classproperty">>;

    return readEach<ClassPropertyGroup>(
        classpropertygroup,
        [&](const json::value& element, std::vector<ClassPropertyGroup>& groups) {
            const Group group(element);
            std::u16string title = group.optionalText<"title">(Utf8);
            groups.emplace_back(
                std::move(title),
                readClassProperties(group.value<"classproperty">(), href, nameType));
        });
}

std::vector<SeeAlso> readSeeAlso(const json::value* seealso) {
    return readEach<SeeAlso>(seealso, [](const json::value& element, std::vector<SeeAlso>& links) {
        const Members<Keys<"url", "name">> link(element);
        std::u16string url = link.text<"url">(Ascii);
        links.emplace_back(std::move(url), link.text<"name">(Utf8));
    });
}

std::vector<Example> readExamples(const json::value* examples) {
    return readEach<Example>(examples, [](const json::value& element,
                                          std::vector<Example>& result) {
        const Members<Keys<"url", "open_command", "title">> example(element);
        std::u16string url = example.text<"url">(Ascii);
        std::u16string openCommand = example.text<"open_command">(Ascii);
        result.emplace_back(std::move(url), std::move(openCommand), example.text<"title">(Utf8));
    });
}

std::vector<Parameter> readParameters(const json::value* parameters, const std::u16string& href) {
    return readEach<Parameter>(
        parameters, [&](const json::value& element, std::vector<Parameter>& result) {
            const Argument parameter(element);
            std::u16string defaultValue = parameter.optionalText<"defaultvalue">(Utf8);
            result.emplace_back(readObjectInfo(parameter, href, Utf8), std::move(defaultValue));
        });
}

} // namespace reference::docparser
