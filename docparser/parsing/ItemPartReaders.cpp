#include "docparser/parsing/ItemPartReaders.hpp"

#include "docparser/parsing/Members.hpp"
#include "platform/i18n/Converter.hpp"

#include <string_view>
#include <utility>

namespace reference::docparser {

namespace json = boost::json;
using namespace property;
using enum StringParsingType;

namespace {

// A link to a place on the item's page: href, "#" and the anchor, in one allocation.
// \param htmlid  the anchor; null when the element has none
std::u16string makeAnchor(const std::u16string& href, const json::value* htmlid) {
    const std::string_view anchor = htmlid ? getJsonString(*htmlid) : std::string_view();
    std::u16string link;
    link.reserve(href.size() + 1 + anchor.size());
    link.append(href).append(1, u'#');
    fl::i18n::append_ascii(link, anchor);
    return link;
}

// The link to a property of a class, which is formed from its name, in one allocation.
std::u16string makePropertyAnchor(const std::u16string& href, const std::u16string& name) {
    constexpr std::u16string_view kSeparator = u"#prop_";
    std::u16string link;
    link.reserve(href.size() + kSeparator.size() + name.size());
    link.append(href).append(kSeparator).append(name);
    return link;
}

// The keys of an argument: of an input, an output or a parameter, which each use some of them.
enum ArgumentSlot {
    ArgName,
    ArgPurpose,
    ArgValue,
    ArgHtmlId,
    ArgDefaultValue,
    ArgSyntaxType,
    ArgNameValuePairs
};
constexpr auto kArgumentKeys =
    keys("name", "purpose", "value", "htmlid", "defaultvalue", "syntaxtype", "namevaluepairs");
using Argument = Members<kArgumentKeys.size()>;

ObjectInfo makeObjectInfo(std::u16string name, const json::value& purpose,
                          const json::value* values, std::u16string anchor) {
    std::u16string purposeText = getFluString(purpose, Utf8);
    return {std::move(name), std::move(purposeText), readTexts(values, Utf8), std::move(anchor)};
}

ObjectInfo readObjectInfo(const Argument& argument, const std::u16string& href,
                          StringParsingType nameType) {
    std::u16string anchor = makeAnchor(href, argument[ArgHtmlId]);
    std::u16string name = argument.text(ArgName, nameType);
    return makeObjectInfo(std::move(name), argument.required(ArgPurpose), argument[ArgValue],
                          std::move(anchor));
}

// How the inputs of one item are read.
struct InputStyle {
    const std::u16string& href;
    StringParsingType nameType;
    bool isNameValuePair;
};

void appendInput(const Argument& input, const InputStyle& style, std::vector<Input>& inputs) {
    std::u16string defaultValue = input.optionalText(ArgDefaultValue, Utf8);
    const SyntaxType::Value syntaxType = input.word<SyntaxType>(ArgSyntaxType);
    inputs.emplace_back(readObjectInfo(input, style.href, style.nameType), syntaxType,
                        std::move(defaultValue), style.isNameValuePair);
}

InputGroup readInputGroup(const json::value& element, const InputStyle& style) {
    enum { Title, Inputs };
    static constexpr auto kKeys = keys("title", "inputs");

    const Members group(element, kKeys);
    std::vector<Input> inputs =
        readEach<Input>(group[Inputs], [&](const json::value& input, std::vector<Input>& result) {
            appendInput(Argument(input, kArgumentKeys), style, result);
        });
    return {group.text(Title, Utf8), std::move(inputs)};
}

// Makes room for `count` more records, at least doubling the room that is there: an item of many
// small blocks would otherwise move all its records for each block.
template <class Record>
void reserveMore(std::vector<Record>& records, std::size_t count) {
    const std::size_t needed = records.size() + std::min(count, kMostReserved);
    if (needed > records.capacity())
        records.reserve(std::max(needed, 2 * records.capacity()));
}

std::vector<ClassProperty> readClassProperties(const json::value* classproperty,
                                               const std::u16string& href,
                                               StringParsingType nameType) {
    enum { Name, Purpose, Value, DefaultValue };
    static constexpr auto kKeys = keys("name", "purpose", "value", "defaultvalue");

    return readEach<ClassProperty>(classproperty, [&](const json::value& element,
                                                      std::vector<ClassProperty>& properties) {
        const Members property(element, kKeys);
        std::u16string name = property.text(Name, nameType);
        std::u16string anchor = makePropertyAnchor(href, name);
        ObjectInfo objectInfo = makeObjectInfo(std::move(name), property.required(Purpose),
                                               property[Value], std::move(anchor));
        properties.emplace_back(std::move(objectInfo), property.optionalText(DefaultValue, Utf8));
    });
}

} // namespace

RefEntities readRefEntities(const json::value* refentity) {
    enum { Type, FcnType, Name };
    static constexpr auto kKeys = keys("type", "fcntype", "name");

    RefEntities result;
    result.entities = readEach<RefEntity>(
        refentity, [&](const json::value& element, std::vector<RefEntity>& entities) {
            const Members entity(element, kKeys);
            const RefEntityType::Value entityType = entity.word<RefEntityType>(Type);
            const FunctionType::Value functionType = entity.word<FunctionType>(FcnType);
            result.hasComponent |= entityType == RefEntityType::Component;
            entities.emplace_back(entityType, entity.text(Name, Utf8), functionType);
        });
    return result;
}

AppThumbnail readAppThumbnail(const json::value* appthumbnail) {
    enum { FileRef, Alt };
    static constexpr auto kKeys = keys("fileref", "alt");

    if (!appthumbnail)
        return {{}, {}};
    const Members thumbnail(*appthumbnail, kKeys);
    std::u16string fileRef = thumbnail.text(FileRef, Ascii);
    return {std::move(fileRef), thumbnail.text(Alt, Utf8)};
}

std::vector<SyntaxGroup> readSyntaxGroups(const json::value* syntaxgroup) {
    enum { Type, Title, Syntax };
    static constexpr auto kKeys = keys("syntaxtype", "title", "syntax");

    return readEach<SyntaxGroup>(
        syntaxgroup, [](const json::value& element, std::vector<SyntaxGroup>& groups) {
            const Members group(element, kKeys);
            const SyntaxType::Value syntaxType = group.word<SyntaxType>(Type);
            std::u16string title = group.text(Title, Utf8);
            groups.emplace_back(std::move(title), syntaxType, readTexts(group[Syntax], Ascii));
        });
}

std::vector<Input> readInputs(const json::value* inputs, const std::u16string& href,
                              StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};

    return readEach<Input>(inputs, [&](const json::value& element, std::vector<Input>& result) {
        const Argument input(element, kArgumentKeys);
        if (!input[ArgNameValuePairs])
            return appendInput(input, plain, result);
        const json::array& pairs = getJsonArray(*input[ArgNameValuePairs]);
        reserveMore(result, pairs.size());
        for (const json::value& nameAndValue : pairs)
            appendInput(Argument(nameAndValue, kArgumentKeys), pair, result);
    });
}

std::vector<InputGroup> readInputGroups(const json::value* inputgroup, const std::u16string& href,
                                        StringParsingType nameType) {
    const InputStyle plain{href, nameType, /*isNameValuePair=*/false};
    const InputStyle pair{href, nameType, /*isNameValuePair=*/true};

    return readEach<InputGroup>(
        inputgroup, [&](const json::value& element, std::vector<InputGroup>& groups) {
            const json::value* pairs = getJsonObject(element).if_contains("namevaluepairs");
            if (!pairs) {
                groups.push_back(readInputGroup(element, plain));
                return;
            }
            for (const json::value& group : getJsonArray(*pairs))
                groups.push_back(readInputGroup(group, pair));
        });
}

std::vector<Output> readOutputs(const json::value* outputs, const std::u16string& href) {
    return readEach<Output>(outputs, [&](const json::value& element, std::vector<Output>& result) {
        const Argument output(element, kArgumentKeys);
        const SyntaxType::Value syntaxType = output.word<SyntaxType>(ArgSyntaxType);
        result.emplace_back(readObjectInfo(output, href, Utf8), syntaxType);
    });
}

std::vector<ClassPropertyGroup> readClassPropertyGroups(const json::value* classpropertygroup,
                                                        const std::u16string& href,
                                                        StringParsingType nameType) {
    enum { Title, Properties };
    static constexpr auto kKeys = keys("title", "classproperty");

    return readEach<ClassPropertyGroup>(
        classpropertygroup,
        [&](const json::value& element, std::vector<ClassPropertyGroup>& groups) {
            const Members group(element, kKeys);
            std::u16string title = group.optionalText(Title, Utf8);
            groups.emplace_back(std::move(title),
                                readClassProperties(group[Properties], href, nameType));
        });
}

std::vector<SeeAlso> readSeeAlso(const json::value* seealso) {
    enum { Url, Name };
    static constexpr auto kKeys = keys("url", "name");

    return readEach<SeeAlso>(seealso, [](const json::value& element, std::vector<SeeAlso>& links) {
        const Members link(element, kKeys);
        std::u16string url = link.text(Url, Ascii);
        links.emplace_back(std::move(url), link.text(Name, Utf8));
    });
}

std::vector<Example> readExamples(const json::value* examples) {
    enum { Url, OpenCommand, Title };
    static constexpr auto kKeys = keys("url", "open_command", "title");

    return readEach<Example>(
        examples, [](const json::value& element, std::vector<Example>& result) {
            const Members example(element, kKeys);
            std::u16string url = example.text(Url, Ascii);
            std::u16string openCommand = example.text(OpenCommand, Ascii);
            result.emplace_back(std::move(url), std::move(openCommand), example.text(Title, Utf8));
        });
}

std::vector<Parameter> readParameters(const json::value* parameters, const std::u16string& href) {
    return readEach<Parameter>(
        parameters, [&](const json::value& element, std::vector<Parameter>& result) {
            const Argument parameter(element, kArgumentKeys);
            std::u16string defaultValue = parameter.optionalText(ArgDefaultValue, Utf8);
            result.emplace_back(readObjectInfo(parameter, href, Utf8), std::move(defaultValue));
        });
}

} // namespace reference::docparser
