#pragma once

#include "benchmarks/peers/ObjectReader.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"

namespace reference::docparser::benchmarks {

using namespace property;
using enum StringParsingType;

/// Reads the inputs, outputs, parameters and properties of an item.
/// \tparam Value  a library's adapter, as ObjectReader.hpp describes
template <class Value>
struct ArgumentReader {
    const std::u16string& href;         ///< of the item; links begin with it
    StringParsingType nameType = Ascii; ///< of inputs and properties

    // Each kind of argument uses some of the fields.
    struct Argument {
        std::u16string name;
        std::u16string purpose;
        std::vector<std::u16string> values;
        std::u16string htmlid;
        std::u16string defaultValue;
        SyntaxType::Value syntaxType;
        bool hasPairs;
    };

    // \param pairs  gets the inputs under "namevaluepairs"; null if the key is to be ignored
    Argument readArgument(Value element, StringParsingType type,
                          std::vector<Input>* pairs = nullptr) const {
        const auto readPairs = [&](Value array) {
            if (pairs)
                array.forEachElement([&](Value pair) {
                    appendInput(readArgument(pair, type), /*isNameValuePair=*/true, *pairs);
                });
            return pairs != nullptr;
        };
        return readRecord<Argument>(element, text<"name">(type), text<"purpose">(Utf8),
                                    texts<"value">(Utf8), text<"htmlid">(Ascii),
                                    text<"defaultvalue">(Utf8), word<"syntaxtype", SyntaxType>(),
                                    member<"namevaluepairs", bool>(readPairs));
    }

    ObjectInfo makeObjectInfo(Argument& argument, const std::u16string& anchor,
                              std::u16string_view separator = u"#") const {
        std::u16string link;
        link.reserve(href.size() + separator.size() + anchor.size());
        link.append(href).append(separator).append(anchor);
        return {std::move(argument.name), std::move(argument.purpose), std::move(argument.values),
                std::move(link)};
    }

    void appendInput(Argument argument, bool isNameValuePair, std::vector<Input>& inputs) const {
        inputs.emplace_back(makeObjectInfo(argument, argument.htmlid), argument.syntaxType,
                            std::move(argument.defaultValue), isNameValuePair);
    }

    // Appends an input, or the inputs under its "namevaluepairs".
    void appendInputs(Value element, std::vector<Input>& inputs) const {
        Argument argument = readArgument(element, nameType, &inputs);
        if (!argument.hasPairs)
            appendInput(std::move(argument), /*isNameValuePair=*/false, inputs);
    }

    // Appends a group, or the groups under "namevaluepairs" of an element that is not a pair
    // itself.
    void appendInputGroups(Value element, bool isNameValuePair,
                           std::vector<InputGroup>& groups) const {
        auto title = text<"title">(Utf8);
        auto inputs = appendedList<"inputs", Input>([&](Value each, std::vector<Input>& all) {
            appendInput(readArgument(each, nameType), isNameValuePair, all);
        });
        auto hasPairs = member<"namevaluepairs", bool>([&](Value array) {
            if (!isNameValuePair)
                array.forEachElement(
                    [&](Value pair) { appendInputGroups(pair, /*isNameValuePair=*/true, groups); });
            return !isNameValuePair;
        });
        readMembers(element.object(), title, inputs, hasPairs);
        if (!hasPairs.value)
            groups.emplace_back(std::move(title.value), std::move(inputs.value));
    }

    Output readOutput(Value element) const {
        Argument argument = readArgument(element, Utf8);
        return {makeObjectInfo(argument, argument.htmlid), argument.syntaxType};
    }

    Parameter readParameter(Value element) const {
        Argument argument = readArgument(element, Utf8);
        return {makeObjectInfo(argument, argument.htmlid), std::move(argument.defaultValue)};
    }

    ClassProperty readProperty(Value element) const {
        Argument argument = readArgument(element, nameType);
        return {makeObjectInfo(argument, argument.name, u"#prop_"),
                std::move(argument.defaultValue)};
    }

    ClassPropertyGroup readPropertyGroup(Value element) const {
        const auto readOne = [this](Value each) { return readProperty(each); };
        return readRecord<ClassPropertyGroup>(element, text<"title">(Utf8),
                                              list<"classproperty", ClassProperty>(readOne));
    }
};

/// Reads a record of an identifier and a text for readers.
template <class Record, Key first, Key second, class Value>
Record readPair(Value element) {
    return readRecord<Record>(element, text<first>(Ascii), text<second>(Utf8));
}

template <class Value>
SyntaxGroup readSyntaxGroup(Value element) {
    return readRecord<SyntaxGroup>(element, text<"title">(Utf8), word<"syntaxtype", SyntaxType>(),
                                   texts<"syntax">(Ascii));
}

template <class Value>
Example readExample(Value element) {
    return readRecord<Example>(element, text<"url">(Ascii), text<"open_command">(Ascii),
                               text<"title">(Utf8));
}

/// Reads one element of "refItems" of a full file and appends it to the items with its href.
template <class Value>
void readItem(Value element, DocResource<RefItem>::Items& items) {
    auto href = text<"href">(Ascii);
    ArgumentReader<Value> arguments{.href = href.value};
    auto refEntities = list<"refentity", RefEntity>([&](Value each) {
        auto entity = readRecord<RefEntity>(each, word<"type", RefEntityType>(), text<"name">(Utf8),
                                            word<"fcntype", FunctionType>());
        if (entity.getEntityType() == RefEntityType::Component)
            arguments.nameType = Utf8;
        return entity;
    });
    auto packageName = text<"packagename">(Ascii);
    auto refPurpose = text<"refpurpose">(Utf8);
    auto introduced = text<"introduced">(Ascii);
    auto description = text<"description">(Utf8);
    auto appThumbnail = member<"appthumbnail">(readPair<AppThumbnail, "fileref", "alt", Value>,
                                               AppThumbnail(u"", u""));
    auto deprecationStatus = word<"deprecationstatus", DeprecationStatus>();
    auto syntaxGroups = list<"syntaxgroup", SyntaxGroup>(readSyntaxGroup<Value>);
    auto seeAlso = list<"seealso", SeeAlso>(readPair<SeeAlso, "url", "name", Value>);
    auto examples = list<"examples", Example>(readExample<Value>);

    // The remaining members depend on the href and the entities. They are postponed to a second
    // pass if they precede them.
    bool isSecondPass = false;
    bool isPostponed = false;
    const auto dependent = [&]<Key key, class T, class Read>(Member<key, T, Read> part) {
        return member<key, T>([&, read = part.read](Value value) {
            if (isSecondPass || !(href.value.empty() || refEntities.value.empty()))
                return read(value);
            isPostponed = true;
            return T();
        });
    };
    auto inputs = dependent(appendedList<"inputs", Input>(
        [&](Value each, std::vector<Input>& all) { arguments.appendInputs(each, all); }));
    auto inputGroups = dependent(
        appendedList<"inputgroup", InputGroup>([&](Value each, std::vector<InputGroup>& all) {
            arguments.appendInputGroups(each, /*isNameValuePair=*/false, all);
        }));
    auto outputs =
        dependent(list<"outputs", Output>([&](Value each) { return arguments.readOutput(each); }));
    auto classPropertyGroups = dependent(list<"classpropertygroup", ClassPropertyGroup>(
        [&](Value each) { return arguments.readPropertyGroup(each); }));
    auto parameters = dependent(
        list<"parameters", Parameter>([&](Value each) { return arguments.readParameter(each); }));

    auto object = element.object();
    readMembers(object, href, refPurpose, refEntities, packageName, introduced, description,
                appThumbnail, deprecationStatus, syntaxGroups, seeAlso, examples, inputs,
                inputGroups, outputs, classPropertyGroups, parameters);
    if (isPostponed) {
        isSecondPass = true;
        object.restart();
        readMembers(object, inputs, inputGroups, outputs, classPropertyGroups, parameters);
    }
    std::vector<RefItem>& sameHref = items[href.value];
    sameHref.emplace_back(
        std::move(href.value), std::move(refEntities.value), std::move(packageName.value),
        std::move(refPurpose.value), std::move(introduced.value), std::move(description.value),
        std::move(appThumbnail.value), deprecationStatus.value, std::move(syntaxGroups.value),
        std::move(inputs.value), std::move(inputGroups.value), std::move(outputs.value),
        std::move(classPropertyGroups.value), std::move(seeAlso.value), std::move(examples.value),
        std::move(parameters.value));
}

} // namespace reference::docparser::benchmarks
