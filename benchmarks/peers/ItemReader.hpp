#pragma once

#include "benchmarks/peers/ObjectReader.hpp"
#include "tests/support/Records.hpp"

#include <utility>

namespace reference::docparser::benchmarks {

using namespace property;
using enum StringParsingType;

/// Reads one element of "refItems" of a full file.
/// \tparam Value  a library's adapter, as ObjectReader.hpp describes
template <class Value>
class ItemReader {
public:
    docparser_tests::RefItemFields read(Value element) {
        auto object = element.object();
        std::uint32_t seen = 0;
        std::uint32_t postponed = 0;
        const auto readNow = [&](std::size_t slot, Value value) {
            if (slot >= Inputs && (seen & kFirst) != kFirst)
                postponed |= 1U << slot;
            else
                readMember(slot, value);
            seen |= 1U << slot;
        };
        const auto readPostponed = [&](std::size_t slot, Value value) {
            if ((postponed >> slot & 1U) != 0)
                readMember(slot, value);
        };
        matchMembers(object, kKeys, readNow);
        require((seen & kRequired) == kRequired);
        if (postponed != 0) {
            object.restart();
            matchMembers(object, kKeys, readPostponed);
        }
        return std::move(item_);
    }

private:
    enum : std::size_t {
        Href,
        Purpose,
        Entities,
        PackageName,
        Introduced,
        Description,
        Thumbnail,
        Deprecation,
        Syntaxes,
        Links,
        Examples,
        // The rest depends on the href, which anchors begin with, and on the types of the entities.
        Inputs,
        Groups,
        Outputs,
        Properties,
        Parameters
    };
    static constexpr std::array<std::string_view, 16> kKeys = {
        "href",        "refpurpose",  "refentity",          "packagename",
        "introduced",  "description", "appthumbnail",       "deprecationstatus",
        "syntaxgroup", "seealso",     "examples",           "inputs",
        "inputgroup",  "outputs",     "classpropertygroup", "parameters"};
    static constexpr std::uint32_t kFirst = 1U << Href | 1U << Entities;
    static constexpr std::uint32_t kRequired = 1U << Href | 1U << Purpose;

    void readMember(std::size_t slot, Value value) {
        switch (slot) {
        case Href: item_.href = readText(value, Ascii); break;
        case Purpose: item_.refPurpose = readText(value, Utf8); break;
        case Entities:
            item_.refEntities = readEach(value, [&](Value each) { return readEntity(each); });
            break;
        case PackageName: item_.packageName = readText(value, Ascii); break;
        case Introduced: item_.introduced = readText(value, Ascii); break;
        case Description: item_.description = readText(value, Utf8); break;
        case Thumbnail: item_.appThumbnail = readPair<AppThumbnail, "fileref", "alt">(value); break;
        case Deprecation: item_.deprecationStatus = readWord<DeprecationStatus>(value); break;
        case Syntaxes: item_.syntaxGroups = readEach(value, readSyntaxGroup); break;
        case Links: item_.seeAlso = readEach(value, readPair<SeeAlso, "url", "name">); break;
        case Examples: item_.examples = readEach(value, readExample); break;
        case Inputs: readInputs(value); break;
        case Groups: readInputGroups(value); break;
        case Outputs:
            item_.outputs = readEach(value, [&](Value each) { return readOutput(each); });
            break;
        case Properties:
            item_.classPropertyGroups =
                readEach(value, [&](Value each) { return readPropertyGroup(each); });
            break;
        case Parameters:
            item_.parameters = readEach(value, [&](Value each) { return readParameter(each); });
            break;
        default: break;
        }
    }

    // A record of an identifier and a text for readers.
    template <class Record, Key first, Key second>
    static Record readPair(Value element) {
        std::u16string identifier;
        std::u16string prose;
        require(readMembers(element.object(), required(text<first>(identifier, Ascii)),
                            required(text<second>(prose, Utf8))));
        return {std::move(identifier), std::move(prose)};
    }

    RefEntity readEntity(Value element) {
        auto type = RefEntityType::getDefaultValue();
        auto functionType = FunctionType::getDefaultValue();
        std::u16string name;
        require(readMembers(element.object(), word<"type", RefEntityType>(type),
                            word<"fcntype", FunctionType>(functionType),
                            required(text<"name">(name, Utf8))));
        if (type == RefEntityType::Component)
            nameType_ = Utf8;
        return {type, std::move(name), functionType};
    }

    static SyntaxGroup readSyntaxGroup(Value element) {
        auto type = SyntaxType::getDefaultValue();
        std::u16string title;
        std::vector<std::u16string> syntaxes;
        require(readMembers(element.object(), word<"syntaxtype", SyntaxType>(type),
                            required(text<"title">(title, Utf8)),
                            texts<"syntax">(syntaxes, Ascii)));
        return {std::move(title), type, std::move(syntaxes)};
    }

    static Example readExample(Value element) {
        std::u16string url;
        std::u16string openCommand;
        std::u16string title;
        require(readMembers(element.object(), required(text<"url">(url, Ascii)),
                            required(text<"open_command">(openCommand, Ascii)),
                            required(text<"title">(title, Utf8))));
        return {std::move(url), std::move(openCommand), std::move(title)};
    }

    // An input, an output, a parameter or a property. Each uses only some of the fields.
    struct Argument {
        std::u16string name;
        std::u16string purpose;
        std::vector<std::u16string> values;
        std::u16string htmlid;
        std::u16string defaultValue;
        SyntaxType::Value syntaxType = SyntaxType::getDefaultValue();
        bool hasPairs = false;
    };

    // \param pairs  gets the inputs under "namevaluepairs"; null if the key is to be ignored
    Argument readArgument(Value element, StringParsingType nameType,
                          std::vector<Input>* pairs = nullptr) const {
        Argument argument;
        const auto readPairs = [&](Value array) {
            if (!pairs)
                return;
            argument.hasPairs = true;
            array.forEachElement([&](Value pair) {
                appendInput(readArgument(pair, nameType), /*isNameValuePair=*/true, *pairs);
            });
        };
        const bool isComplete = readMembers(
            element.object(), required(text<"name">(argument.name, nameType)),
            required(text<"purpose">(argument.purpose, Utf8)),
            texts<"value">(argument.values, Utf8), text<"htmlid">(argument.htmlid, Ascii),
            text<"defaultvalue">(argument.defaultValue, Utf8),
            word<"syntaxtype", SyntaxType>(argument.syntaxType),
            member<"namevaluepairs">(readPairs));
        require(isComplete || argument.hasPairs);
        return argument;
    }

    ObjectInfo makeObjectInfo(Argument& argument, std::u16string_view separator,
                              const std::u16string& anchor) const {
        std::u16string link;
        link.reserve(item_.href.size() + separator.size() + anchor.size());
        link.append(item_.href).append(separator).append(anchor);
        return {std::move(argument.name), std::move(argument.purpose), std::move(argument.values),
                std::move(link)};
    }

    ObjectInfo makeObjectInfo(Argument& argument) const {
        return makeObjectInfo(argument, u"#", argument.htmlid);
    }

    void appendInput(Argument argument, bool isNameValuePair, std::vector<Input>& inputs) const {
        inputs.emplace_back(makeObjectInfo(argument), argument.syntaxType,
                            std::move(argument.defaultValue), isNameValuePair);
    }

    void readInputs(Value array) {
        const auto append = [this](Value element, std::vector<Input>& inputs) {
            Argument argument = readArgument(element, nameType_, &inputs);
            if (!argument.hasPairs)
                appendInput(std::move(argument), /*isNameValuePair=*/false, inputs);
        };
        item_.inputs = appendEach<Input>(array, append);
    }

    // Appends a group, or the groups under "namevaluepairs" of an element that is not a pair
    // itself.
    void appendInputGroup(Value element, bool isNameValuePair, std::vector<InputGroup>& groups) {
        std::u16string title;
        std::vector<Input> inputs;
        bool hasPairs = false;
        const auto appendOne = [&](Value input, std::vector<Input>& list) {
            appendInput(readArgument(input, nameType_), isNameValuePair, list);
        };
        const auto readPairs = [&](Value array) {
            if (isNameValuePair)
                return;
            hasPairs = true;
            array.forEachElement(
                [&](Value pair) { appendInputGroup(pair, /*isNameValuePair=*/true, groups); });
        };
        const bool isComplete = readMembers(
            element.object(), required(text<"title">(title, Utf8)),
            member<"inputs">([&](Value list) { inputs = appendEach<Input>(list, appendOne); }),
            member<"namevaluepairs">(readPairs));
        require(isComplete || hasPairs);
        if (!hasPairs)
            groups.emplace_back(std::move(title), std::move(inputs));
    }

    void readInputGroups(Value array) {
        const auto append = [this](Value element, std::vector<InputGroup>& groups) {
            appendInputGroup(element, /*isNameValuePair=*/false, groups);
        };
        item_.inputGroups = appendEach<InputGroup>(array, append);
    }

    Output readOutput(Value element) const {
        Argument argument = readArgument(element, Utf8);
        return {makeObjectInfo(argument), argument.syntaxType};
    }

    Parameter readParameter(Value element) const {
        Argument argument = readArgument(element, Utf8);
        return {makeObjectInfo(argument), std::move(argument.defaultValue)};
    }

    ClassProperty readProperty(Value element) const {
        Argument argument = readArgument(element, nameType_);
        return {makeObjectInfo(argument, u"#prop_", argument.name),
                std::move(argument.defaultValue)};
    }

    ClassPropertyGroup readPropertyGroup(Value element) const {
        std::u16string title;
        std::vector<ClassProperty> properties;
        readMembers(
            element.object(), text<"title">(title, Utf8), member<"classproperty">([&](Value list) {
                properties = readEach(list, [&](Value property) { return readProperty(property); });
            }));
        return {std::move(title), std::move(properties)};
    }

    docparser_tests::RefItemFields item_;
    StringParsingType nameType_ = Ascii;
};

} // namespace reference::docparser::benchmarks
