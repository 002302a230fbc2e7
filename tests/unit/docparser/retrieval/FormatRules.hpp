#pragma once

#include "docparser/parsing/DocResource.hpp"

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {

/// The JSON type that the format requires for a key.
enum class ValueType {
    String,
    Word, ///< a word of an enumeration; any other value means the default
    Array,
    Object,
    Anything ///< only the presence of the key matters
};

/// Whether a value of the format may be missing.
enum class Presence {
    Required,
    Optional,
    Element ///< an element of an array, which may be shorter
};

/// How a string is converted.
enum class Reading {
    Ascii,
    Utf8,
    Name ///< decoded if the item documents a component, otherwise widened
};

/// The rule of the format for one position of its sample document.
template <class Record>
struct FormatRule {
    /// Returns the parsed value of the position: a string, the number of a word or of records.
    using Field =
        std::function<std::u16string(const reference::docparser::ResourceMap<Record>& sections)>;

    std::string parent; ///< JSON pointer of the object or array
    std::string key;    ///< or index of the element
    ValueType type;
    Presence presence;
    Reading reading; ///< of a string
    Field field;

    std::string pointer() const { return parent + '/' + key; }

    /// The value of the field if the key is missing.
    std::u16string fallback() const {
        return type == ValueType::String || type == ValueType::Object ? u"" : u"0";
    }
};

/// The rules of a format, one per position.
template <class Record>
class FormatRules {
public:
    using Field = typename FormatRule<Record>::Field;

    void text(std::string parent, std::string key, Presence presence, Reading reading,
              Field field) {
        rules_.push_back({std::move(parent), std::move(key), ValueType::String, presence, reading,
                          std::move(field)});
    }
    void word(std::string parent, std::string key, Field field) {
        other(std::move(parent), std::move(key), ValueType::Word, Presence::Optional,
              std::move(field));
    }
    void other(std::string parent, std::string key, ValueType type, Presence presence,
               Field field) {
        rules_.push_back(
            {std::move(parent), std::move(key), type, presence, Reading::Utf8, std::move(field)});
    }
    /// The position of an element of an array.
    void element(std::string array, std::string number) {
        other(std::move(array), std::move(number), ValueType::Object, Presence::Element, nullptr);
    }

    const std::vector<FormatRule<Record>>& all() const { return rules_; }

private:
    std::vector<FormatRule<Record>> rules_;
};

/// Formats a number as the field of a rule returns it.
inline std::u16string numberText(std::size_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

/// The only section whose key is not `otherKey`.
template <class Record>
const reference::docparser::DocResource<Record>&
sectionBut(const reference::docparser::ResourceMap<Record>& sections, const char16_t* otherKey) {
    for (const auto& [key, section] : sections) {
        if (key != otherKey)
            return section;
    }
    throw std::out_of_range("no such section");
}

/// Adds the rules of a section: its header, its list of items and the position of its first item.
/// \param parent    the section's JSON pointer
/// \param otherKey  the key of the sample's other section
template <class Record>
void addSectionRules(FormatRules<Record>& rules, const std::string& parent,
                     const char16_t* otherKey) {
    using Header = reference::property::HeaderInfo;
    const auto header = [&](const char* key, Presence presence, Reading reading,
                            const std::u16string& (Header::*get)() const noexcept) {
        rules.text(parent, key, presence, reading, [=](const auto& sections) {
            return (sectionBut(sections, otherKey).header.*get)();
        });
    };
    header("schema", Presence::Optional, Reading::Ascii, &Header::getSchema);
    header("schemaVersion", Presence::Optional, Reading::Ascii, &Header::getSchemaVersion);
    header("productName", Presence::Required, Reading::Utf8, &Header::getProductName);
    header("baseCode", Presence::Required, Reading::Ascii, &Header::getBaseCode);
    header("helpFolder", Presence::Required, Reading::Ascii, &Header::getHelpFolder);
    header("helpLocation", Presence::Required, Reading::Ascii, &Header::getHelpLocation);
    rules.other(parent, "refItems", ValueType::Array, Presence::Required,
                [=](const auto& sections) {
                    return numberText(sectionBut(sections, otherKey).items.size());
                });
    rules.element(parent + "/refItems", "0");
}

/// Adds the rules of "supportPackages" and of its only section.
template <class Record>
void addSupportPackageRules(FormatRules<Record>& rules) {
    rules.other("", "supportPackages", ValueType::Array, Presence::Optional,
                [](const auto& sections) { return numberText(sections.size() - 1); });
    rules.element("/supportPackages", "0");
    addSectionRules(rules, "/supportPackages/0", u"folder");
}

} // namespace docparser_tests
