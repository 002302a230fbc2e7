#pragma once

#include "benchmarks/peers/RecordReader.hpp"
#include "tests/support/Records.hpp"

namespace reference::docparser::benchmarks {

/// Reads one element of "refItems" of a full file. An object of this class serves one element.
template <class Json>
class ItemReader {
    using Value = typename Json::Value;
    using enum StringParsingType;

public:
    void read(Value element, DocResource<RefItem>::Items& items) {
        typename Json::Object object = Json::object(element);
        std::uint32_t seen = 0;
        std::uint32_t postponed = 0;
        const auto readNow = [&](std::size_t slot, Value value) {
            // Links hang on the href, names on the entities.
            if (slot >= Inputs && (seen & kFirst) != kFirst)
                postponed |= 1U << slot;
            else
                readMember(slot, value);
            seen |= 1U << slot;
        };
        readMembers<Json>(object, kKeys, readNow);
        require(seen, Href, Purpose);
        if (postponed != 0) {
            Json::restart(object);
            readMembers<Json>(object, kKeys, [&](std::size_t slot, Value value) {
                if ((postponed >> slot & 1U) != 0)
                    readMember(slot, value);
            });
        }
        store(items);
    }

private:
    // What others hang on stands first, what hangs on them last.
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

    struct Argument {
        std::u16string name;
        std::u16string purpose;
        std::vector<std::u16string> values;
        std::u16string htmlid;
        std::u16string defaultValue;
        SyntaxType::Value syntaxType = SyntaxType::getDefaultValue();
        bool hasPairs = false;
    };

    void readMember(std::size_t slot, Value value) {
        switch (slot) {
        case Href: fields_.href = readText<Json>(value, Ascii); break;
        case Purpose: fields_.refPurpose = readText<Json>(value, Utf8); break;
        case Entities: readEntities(value); break;
        case PackageName: fields_.packageName = readText<Json>(value, Ascii); break;
        case Introduced: fields_.introduced = readText<Json>(value, Ascii); break;
        case Description: fields_.description = readText<Json>(value, Utf8); break;
        case Thumbnail: fields_.appThumbnail = readThumbnail(value); break;
        case Deprecation:
            fields_.deprecationStatus = readWord<Json, DeprecationStatus>(value);
            break;
        case Syntaxes: fields_.syntaxGroups = readSyntaxGroups(value); break;
        case Links: fields_.seeAlso = readLinks(value); break;
        case Examples: fields_.examples = readExamples(value); break;
        case Inputs:
            fields_.inputs = readInputs(value, /*isNameValuePair=*/false, /*nested=*/true);
            break;
        case Groups: readInputGroups(value); break;
        case Outputs: fields_.outputs = readOutputs(value); break;
        case Properties: fields_.classPropertyGroups = readPropertyGroups(value); break;
        case Parameters: fields_.parameters = readParameters(value); break;
        default: break;
        }
    }

    void store(DocResource<RefItem>::Items& items) {
        std::vector<RefItem>& sameHref = items[fields_.href];
        docparser_tests::appendRefItem(sameHref, std::move(fields_));
    }

    void readEntities(Value array) {
        enum : std::size_t { Type, FcnType, Name };
        static constexpr std::array<std::string_view, 3> kEntityKeys = {"type", "fcntype", "name"};
        const auto readEntity = [this](Value element, std::vector<RefEntity>& entities) {
            auto type = RefEntityType::getDefaultValue();
            auto functionType = FunctionType::getDefaultValue();
            std::u16string name;
            typename Json::Object object = Json::object(element);
            require(readMembers<Json>(object, kEntityKeys,
                                      [&](std::size_t slot, Value value) {
                                          if (slot == Type)
                                              type = readWord<Json, RefEntityType>(value);
                                          else if (slot == FcnType)
                                              functionType = readWord<Json, FunctionType>(value);
                                          else
                                              name = readText<Json>(value, Utf8);
                                      }),
                    Name);
            if (type == RefEntityType::Component)
                nameType_ = Utf8;
            entities.emplace_back(type, std::move(name), functionType);
        };
        fields_.refEntities = readRecords<Json, RefEntity>(array, readEntity);
    }

    static AppThumbnail readThumbnail(Value value) {
        auto [fileRef, alt] = readTwoTexts({"fileref", "alt"}, value);
        return {std::move(fileRef), std::move(alt)};
    }

    static std::pair<std::u16string, std::u16string>
    readTwoTexts(const std::array<std::string_view, 2>& keys, Value value) {
        std::pair<std::u16string, std::u16string> texts;
        typename Json::Object object = Json::object(value);
        require(readMembers<Json>(object, keys,
                                  [&](std::size_t slot, Value member) {
                                      if (slot == 0)
                                          texts.first = readText<Json>(member, Ascii);
                                      else
                                          texts.second = readText<Json>(member, Utf8);
                                  }),
                0, 1);
        return texts;
    }

    static std::vector<SyntaxGroup> readSyntaxGroups(Value array) {
        enum : std::size_t { Type, Title, Syntax };
        static constexpr std::array<std::string_view, 3> kGroupKeys = {"syntaxtype", "title",
                                                                       "syntax"};
        return readRecords<Json, SyntaxGroup>(
            array, [](Value element, std::vector<SyntaxGroup>& groups) {
                auto type = SyntaxType::getDefaultValue();
                std::u16string title;
                std::vector<std::u16string> syntaxes;
                typename Json::Object object = Json::object(element);
                require(readMembers<Json>(object, kGroupKeys,
                                          [&](std::size_t slot, Value value) {
                                              if (slot == Type)
                                                  type = readWord<Json, SyntaxType>(value);
                                              else if (slot == Title)
                                                  title = readText<Json>(value, Utf8);
                                              else
                                                  syntaxes = readTexts<Json>(value, Ascii);
                                          }),
                        Title);
                groups.emplace_back(std::move(title), type, std::move(syntaxes));
            });
    }

    static std::vector<SeeAlso> readLinks(Value array) {
        return readRecords<Json, SeeAlso>(array, [](Value element, std::vector<SeeAlso>& links) {
            auto [url, name] = readTwoTexts({"url", "name"}, element);
            links.emplace_back(std::move(url), std::move(name));
        });
    }

    static std::vector<Example> readExamples(Value array) {
        enum : std::size_t { Url, OpenCommand, Title };
        static constexpr std::array<std::string_view, 3> kExampleKeys = {"url", "open_command",
                                                                         "title"};
        return readRecords<Json, Example>(array, [](Value element, std::vector<Example>& examples) {
            std::array<std::u16string, 3> texts;
            typename Json::Object object = Json::object(element);
            require(readMembers<Json>(object, kExampleKeys,
                                      [&](std::size_t slot, Value value) {
                                          texts[slot] =
                                              readText<Json>(value, slot == Title ? Utf8 : Ascii);
                                      }),
                    Url, OpenCommand, Title);
            examples.emplace_back(std::move(texts[Url]), std::move(texts[OpenCommand]),
                                  std::move(texts[Title]));
        });
    }

    /// \param pairs  where the inputs under "namevaluepairs" go; null: the key means nothing here
    Argument readArgument(Value element, StringParsingType nameType, std::vector<Input>* pairs) {
        enum : std::size_t { Name, ArgPurpose, Values, HtmlId, DefaultValue, Type, Pairs };
        static constexpr std::array<std::string_view, 7> kArgumentKeys = {
            "name", "purpose", "value", "htmlid", "defaultvalue", "syntaxtype", "namevaluepairs"};
        Argument argument;
        typename Json::Object object = Json::object(element);
        const auto readOne = [&](std::size_t slot, Value value) {
            switch (slot) {
            case Name: argument.name = readText<Json>(value, nameType); break;
            case ArgPurpose: argument.purpose = readText<Json>(value, Utf8); break;
            case Values: argument.values = readTexts<Json>(value, Utf8); break;
            case HtmlId: argument.htmlid = readText<Json>(value, Ascii); break;
            case DefaultValue: argument.defaultValue = readText<Json>(value, Utf8); break;
            case Type: argument.syntaxType = readWord<Json, SyntaxType>(value); break;
            case Pairs:
                if (pairs)
                    appendInputs(value, /*isNameValuePair=*/true, /*nested=*/false, *pairs);
                argument.hasPairs = pairs != nullptr;
                break;
            default: break;
            }
        };
        const std::uint32_t seen = readMembers<Json>(object, kArgumentKeys, readOne);
        if (!argument.hasPairs)
            require(seen, Name, ArgPurpose);
        return argument;
    }

    std::u16string makeAnchor(std::u16string_view separator, const std::u16string& place) const {
        std::u16string anchor;
        anchor.reserve(fields_.href.size() + separator.size() + place.size());
        return anchor.append(fields_.href).append(separator).append(place);
    }

    ObjectInfo makeObjectInfo(Argument& argument) const {
        std::u16string anchor = makeAnchor(u"#", argument.htmlid);
        return {std::move(argument.name), std::move(argument.purpose), std::move(argument.values),
                std::move(anchor)};
    }

    void appendInputs(Value array, bool isNameValuePair, bool nested, std::vector<Input>& inputs) {
        Json::forEachElement(array, [&](Value element) {
            Argument argument = readArgument(element, nameType_, nested ? &inputs : nullptr);
            if (!argument.hasPairs)
                inputs.emplace_back(makeObjectInfo(argument), argument.syntaxType,
                                    std::move(argument.defaultValue), isNameValuePair);
        });
    }

    /// \param nested  whether "namevaluepairs" is looked for in the elements
    std::vector<Input> readInputs(Value array, bool isNameValuePair, bool nested) {
        std::vector<Input> inputs;
        inputs.reserve(Json::count(array));
        appendInputs(array, isNameValuePair, nested, inputs);
        return inputs;
    }

    void readInputGroups(Value array) {
        fields_.inputGroups.clear();
        fields_.inputGroups.reserve(Json::count(array));
        Json::forEachElement(
            array, [this](Value element) { readInputGroup(element, /*isNameValuePair=*/false); });
    }

    // Appends one group, or those under the "namevaluepairs" of an element that is no pair itself.
    void readInputGroup(Value element, bool isNameValuePair) {
        enum : std::size_t { Title, GroupInputs, Pairs };
        static constexpr std::array<std::string_view, 3> kGroupKeys = {"title", "inputs",
                                                                       "namevaluepairs"};
        std::u16string title;
        std::vector<Input> inputs;
        bool hasPairs = false;
        typename Json::Object object = Json::object(element);
        const std::uint32_t seen =
            readMembers<Json>(object, kGroupKeys, [&](std::size_t slot, Value value) {
                if (slot == Title) {
                    title = readText<Json>(value, Utf8);
                } else if (slot == GroupInputs) {
                    inputs = readInputs(value, isNameValuePair, /*nested=*/false);
                } else if (!isNameValuePair) {
                    hasPairs = true;
                    Json::forEachElement(value, [this](Value pair) {
                        readInputGroup(pair, /*isNameValuePair=*/true);
                    });
                }
            });
        if (hasPairs)
            return;
        require(seen, Title);
        fields_.inputGroups.emplace_back(std::move(title), std::move(inputs));
    }

    std::vector<Output> readOutputs(Value array) {
        return readRecords<Json, Output>(
            array, [this](Value element, std::vector<Output>& outputs) {
                Argument argument = readArgument(element, Utf8, nullptr);
                outputs.emplace_back(makeObjectInfo(argument), argument.syntaxType);
            });
    }

    std::vector<Parameter> readParameters(Value array) {
        return readRecords<Json, Parameter>(
            array, [this](Value element, std::vector<Parameter>& parameters) {
                Argument argument = readArgument(element, Utf8, nullptr);
                parameters.emplace_back(makeObjectInfo(argument), std::move(argument.defaultValue));
            });
    }

    std::vector<ClassProperty> readProperties(Value array) {
        return readRecords<Json, ClassProperty>(
            array, [this](Value element, std::vector<ClassProperty>& properties) {
                Argument property = readArgument(element, nameType_, nullptr);
                std::u16string anchor = makeAnchor(u"#prop_", property.name);
                properties.emplace_back(ObjectInfo(std::move(property.name),
                                                   std::move(property.purpose),
                                                   std::move(property.values), std::move(anchor)),
                                        std::move(property.defaultValue));
            });
    }

    std::vector<ClassPropertyGroup> readPropertyGroups(Value array) {
        enum : std::size_t { Title };
        static constexpr std::array<std::string_view, 2> kGroupKeys = {"title", "classproperty"};
        return readRecords<Json, ClassPropertyGroup>(
            array, [this](Value element, std::vector<ClassPropertyGroup>& groups) {
                std::u16string title;
                std::vector<ClassProperty> properties;
                typename Json::Object object = Json::object(element);
                readMembers<Json>(object, kGroupKeys, [&](std::size_t slot, Value value) {
                    if (slot == Title)
                        title = readText<Json>(value, Utf8);
                    else
                        properties = readProperties(value);
                });
                groups.emplace_back(std::move(title), std::move(properties));
            });
    }

    docparser_tests::RefItemFields fields_;
    StringParsingType nameType_ = Ascii;
};

} // namespace reference::docparser::benchmarks
