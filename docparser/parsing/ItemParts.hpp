#pragma once

#include "docparser/parsing/Enumerations.hpp"

#include <string>
#include <utility>
#include <vector>

namespace reference::property {

// The parts of a RefItem. Each is a value: its constructor takes every field in file order, and it
// is only read afterwards.

/// One entity that an item documents. An item may document several.
class RefEntity {
public:
    /// Takes every field in the order of the accessors.
    RefEntity(RefEntityType::Value entityType, std::u16string name,
              FunctionType::Value functionType)
        : entityType_(entityType), name_(std::move(name)), functionType_(functionType) {}

    /// RefEntityType::Function if the file has no type or an unknown one.
    RefEntityType::Value getEntityType() const noexcept { return entityType_; }
    /// The entity's name in the product.
    const std::u16string& getName() const noexcept { return name_; }
    /// FunctionType::Function if the file has no type or an unknown one.
    FunctionType::Value getFunctionType() const noexcept { return functionType_; }

    bool operator==(const RefEntity&) const = default;

private:
    RefEntityType::Value entityType_;
    std::u16string name_;
    FunctionType::Value functionType_;
};

/// The picture of an app. Both strings are empty if the item has none.
class AppThumbnail {
public:
    /// Takes every field in the order of the accessors.
    AppThumbnail(std::u16string fileRef, std::u16string alt)
        : fileRef_(std::move(fileRef)), alt_(std::move(alt)) {}

    /// Reference to the image file.
    const std::u16string& getFileRef() const noexcept { return fileRef_; }
    /// Text to show in place of the image.
    const std::u16string& getAlt() const noexcept { return alt_; }

    bool operator==(const AppThumbnail&) const = default;

private:
    std::u16string fileRef_;
    std::u16string alt_;
};

/// A titled group of calling forms.
class SyntaxGroup {
public:
    /// Takes every field in the order of the accessors.
    SyntaxGroup(std::u16string title, SyntaxType::Value syntaxType,
                std::vector<std::u16string> syntaxes)
        : title_(std::move(title)), syntaxType_(syntaxType), syntaxes_(std::move(syntaxes)) {}

    /// Heading of the group.
    const std::u16string& getTitle() const noexcept { return title_; }
    /// SyntaxType::Function if the file has no type or an unknown one.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }
    /// The calling forms in file order.
    const std::vector<std::u16string>& getSyntaxes() const noexcept { return syntaxes_; }

    bool operator==(const SyntaxGroup&) const = default;

private:
    std::u16string title_;
    SyntaxType::Value syntaxType_;
    std::vector<std::u16string> syntaxes_;
};

/// The description that inputs, outputs, parameters and properties share.
class ObjectInfo {
public:
    /// Takes every field in the order of the accessors.
    ObjectInfo(std::u16string name, std::u16string purpose, std::vector<std::u16string> values,
               std::u16string href)
        : name_(std::move(name)),
          purpose_(std::move(purpose)),
          values_(std::move(values)),
          href_(std::move(href)) {}

    /// The name as the product spells it. The names of inputs and properties are decoded only if
    /// the item documents a component; otherwise each byte is one code unit up to U+00FF.
    const std::u16string& getName() const noexcept { return name_; }
    /// The purpose in one line.
    const std::u16string& getPurpose() const noexcept { return purpose_; }
    /// The allowed values in file order, repeated ones included; empty if the file lists none.
    const std::vector<std::u16string>& getValues() const noexcept { return values_; }
    /// Link to the description on the item's page: the item's href, "#" and the anchor. The anchor
    /// is empty if the file has none; the anchor of a class property is "prop_" and its name.
    const std::u16string& getHref() const noexcept { return href_; }

    bool operator==(const ObjectInfo&) const = default;

private:
    std::u16string name_;
    std::u16string purpose_;
    std::vector<std::u16string> values_;
    std::u16string href_;
};

/// One input argument.
class Input {
public:
    /// Takes every field in the order of the accessors.
    Input(ObjectInfo objectInfo, SyntaxType::Value syntaxType, std::u16string defaultValue,
          bool isNameValuePair)
        : objectInfo_(std::move(objectInfo)),
          syntaxType_(syntaxType),
          defaultValue_(std::move(defaultValue)),
          isNameValuePair_(isNameValuePair) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// SyntaxType::Function if the file has no type or an unknown one.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }
    /// Empty if the file has none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }
    /// Whether the file lists the input as a name-value pair.
    bool getIsNameValuePair() const noexcept { return isNameValuePair_; }

    bool operator==(const Input&) const = default;

private:
    ObjectInfo objectInfo_;
    SyntaxType::Value syntaxType_;
    std::u16string defaultValue_;
    bool isNameValuePair_;
};

/// A titled group of inputs.
class InputGroup {
public:
    /// Takes every field in the order of the accessors.
    InputGroup(std::u16string title, std::vector<Input> inputs)
        : title_(std::move(title)), inputs_(std::move(inputs)) {}

    /// Heading of the group.
    const std::u16string& getTitle() const noexcept { return title_; }
    /// In file order.
    const std::vector<Input>& getInputs() const noexcept { return inputs_; }

    bool operator==(const InputGroup&) const = default;

private:
    std::u16string title_;
    std::vector<Input> inputs_;
};

/// One output argument.
class Output {
public:
    /// Takes every field in the order of the accessors.
    Output(ObjectInfo objectInfo, SyntaxType::Value syntaxType)
        : objectInfo_(std::move(objectInfo)), syntaxType_(syntaxType) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// SyntaxType::Function if the file has no type or an unknown one.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }

    bool operator==(const Output&) const = default;

private:
    ObjectInfo objectInfo_;
    SyntaxType::Value syntaxType_;
};

/// One parameter.
class Parameter {
public:
    /// Takes every field in the order of the accessors.
    Parameter(ObjectInfo objectInfo, std::u16string defaultValue)
        : objectInfo_(std::move(objectInfo)), defaultValue_(std::move(defaultValue)) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// Empty if the file has none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }

    bool operator==(const Parameter&) const = default;

private:
    ObjectInfo objectInfo_;
    std::u16string defaultValue_;
};

/// One property of a class.
class ClassProperty {
public:
    /// Takes every field in the order of the accessors.
    ClassProperty(ObjectInfo objectInfo, std::u16string defaultValue)
        : objectInfo_(std::move(objectInfo)), defaultValue_(std::move(defaultValue)) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// Empty if the file has none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }

    bool operator==(const ClassProperty&) const = default;

private:
    ObjectInfo objectInfo_;
    std::u16string defaultValue_;
};

/// A group of class properties.
class ClassPropertyGroup {
public:
    /// Takes every field in the order of the accessors.
    ClassPropertyGroup(std::u16string title, std::vector<ClassProperty> properties)
        : title_(std::move(title)), properties_(std::move(properties)) {}

    /// Heading of the group; empty if the file has none.
    const std::u16string& getTitle() const noexcept { return title_; }
    /// In file order.
    const std::vector<ClassProperty>& getProperties() const noexcept { return properties_; }

    bool operator==(const ClassPropertyGroup&) const = default;

private:
    std::u16string title_;
    std::vector<ClassProperty> properties_;
};

/// A link to a related page.
class SeeAlso {
public:
    /// Takes every field in the order of the accessors.
    SeeAlso(std::u16string url, std::u16string name)
        : url_(std::move(url)), name_(std::move(name)) {}

    /// The target of the link exactly as the file has it.
    const std::u16string& getUrl() const noexcept { return url_; }
    /// The link text.
    const std::u16string& getName() const noexcept { return name_; }

    bool operator==(const SeeAlso&) const = default;

private:
    std::u16string url_;
    std::u16string name_;
};

/// An example of how to use an item.
class Example {
public:
    /// Takes every field in the order of the accessors.
    Example(std::u16string url, std::u16string openCommand, std::u16string title)
        : url_(std::move(url)), openCommand_(std::move(openCommand)), title_(std::move(title)) {}

    /// The page of the example exactly as the file has it.
    const std::u16string& getUrl() const noexcept { return url_; }
    /// The command that opens the example.
    const std::u16string& getOpenCommand() const noexcept { return openCommand_; }
    /// Heading of the example.
    const std::u16string& getTitle() const noexcept { return title_; }

    bool operator==(const Example&) const = default;

private:
    std::u16string url_;
    std::u16string openCommand_;
    std::u16string title_;
};

} // namespace reference::property
