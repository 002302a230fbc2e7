#pragma once

#include "docparser/parsing/Enumerations.hpp"

#include <string>
#include <utility>
#include <vector>

namespace reference::property {

// The parts that a RefItem is made of. Each is a value: built whole by its constructor, whose
// arguments stand in the order of the fields, and only read afterwards.

/// One kind of entity that an item documents; an item may document several.
class RefEntity {
public:
    /// Takes every field, in file order.
    RefEntity(RefEntityType::Value entityType, std::u16string name,
              FunctionType::Value functionType)
        : entityType_(entityType), name_(std::move(name)), functionType_(functionType) {}

    /// What kind of thing it is; RefEntityType::Function when the file does not tell or has a word
    /// of its own.
    RefEntityType::Value getEntityType() const noexcept { return entityType_; }
    /// What the entity is called in the product, decoded as UTF-8.
    const std::u16string& getName() const noexcept { return name_; }
    /// Which kind of function it is; FunctionType::Function when the file does not tell.
    FunctionType::Value getFunctionType() const noexcept { return functionType_; }

    bool operator==(const RefEntity&) const = default;

private:
    RefEntityType::Value entityType_;
    std::u16string name_;
    FunctionType::Value functionType_;
};

/// The picture that stands for an item; both texts are empty when the item has none.
class AppThumbnail {
public:
    /// Takes both fields.
    AppThumbnail(std::u16string fileRef, std::u16string alt)
        : fileRef_(std::move(fileRef)), alt_(std::move(alt)) {}

    /// Reference to the image file.
    const std::u16string& getFileRef() const noexcept { return fileRef_; }
    /// Text to show in the image's stead.
    const std::u16string& getAlt() const noexcept { return alt_; }

    bool operator==(const AppThumbnail&) const = default;

private:
    std::u16string fileRef_;
    std::u16string alt_;
};

/// A titled group of ways to call an item.
class SyntaxGroup {
public:
    /// Takes every field, in file order.
    SyntaxGroup(std::u16string title, SyntaxType::Value syntaxType,
                std::vector<std::u16string> syntaxes)
        : title_(std::move(title)), syntaxType_(syntaxType), syntaxes_(std::move(syntaxes)) {}

    /// Heading of the group, for people.
    const std::u16string& getTitle() const noexcept { return title_; }
    /// How the forms of the group are called.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }
    /// The calling forms, in file order.
    const std::vector<std::u16string>& getSyntaxes() const noexcept { return syntaxes_; }

    bool operator==(const SyntaxGroup&) const = default;

private:
    std::u16string title_;
    SyntaxType::Value syntaxType_;
    std::vector<std::u16string> syntaxes_;
};

/// What an argument, an output, a parameter and a property have in common.
class ObjectInfo {
public:
    /// Takes every field, in file order.
    ObjectInfo(std::u16string name, std::u16string purpose, std::vector<std::u16string> values,
               std::u16string href)
        : name_(std::move(name)),
          purpose_(std::move(purpose)),
          values_(std::move(values)),
          href_(std::move(href)) {}

    /// Its name as the product spells it. Inputs and properties have one of code units up to
    /// U+00FF, one for each byte of the file, unless the item documents a component.
    const std::u16string& getName() const noexcept { return name_; }
    /// One line on what it is for.
    const std::u16string& getPurpose() const noexcept { return purpose_; }
    /// The values that it may have, in file order, repeated ones included; empty when the file
    /// lists none.
    const std::vector<std::u16string>& getValues() const noexcept { return values_; }
    /// Link to its place on the item's page: the item's href, "#" and the anchor, which may be
    /// empty.
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
    /// Takes every field, in file order.
    Input(ObjectInfo objectInfo, SyntaxType::Value syntaxType, std::u16string defaultValue,
          bool isNameValuePair)
        : objectInfo_(std::move(objectInfo)),
          syntaxType_(syntaxType),
          defaultValue_(std::move(defaultValue)),
          isNameValuePair_(isNameValuePair) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// In which form of call it is written.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }
    /// Empty when the file gives none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }
    /// Whether the file lists the input among name-value pairs.
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
    /// Takes every field, in file order.
    InputGroup(std::u16string title, std::vector<Input> inputs)
        : title_(std::move(title)), inputs_(std::move(inputs)) {}

    /// Heading of the group, for people.
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
    /// Takes every field, in file order.
    Output(ObjectInfo objectInfo, SyntaxType::Value syntaxType)
        : objectInfo_(std::move(objectInfo)), syntaxType_(syntaxType) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// From which form of call it comes.
    SyntaxType::Value getSyntaxType() const noexcept { return syntaxType_; }

    bool operator==(const Output&) const = default;

private:
    ObjectInfo objectInfo_;
    SyntaxType::Value syntaxType_;
};

/// One parameter.
class Parameter {
public:
    /// Takes every field, in file order.
    Parameter(ObjectInfo objectInfo, std::u16string defaultValue)
        : objectInfo_(std::move(objectInfo)), defaultValue_(std::move(defaultValue)) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// Empty when the file gives none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }

    bool operator==(const Parameter&) const = default;

private:
    ObjectInfo objectInfo_;
    std::u16string defaultValue_;
};

/// One property of a class; its link ends in "#prop_" and its name.
class ClassProperty {
public:
    /// Takes every field, in file order.
    ClassProperty(ObjectInfo objectInfo, std::u16string defaultValue)
        : objectInfo_(std::move(objectInfo)), defaultValue_(std::move(defaultValue)) {}

    /// Name, purpose, values and link.
    const ObjectInfo& getObjectInfo() const noexcept { return objectInfo_; }
    /// Empty when the file gives none.
    const std::u16string& getDefaultValue() const noexcept { return defaultValue_; }

    bool operator==(const ClassProperty&) const = default;

private:
    ObjectInfo objectInfo_;
    std::u16string defaultValue_;
};

/// A group of properties; the title may be empty.
class ClassPropertyGroup {
public:
    /// Takes every field, in file order.
    ClassPropertyGroup(std::u16string title, std::vector<ClassProperty> properties)
        : title_(std::move(title)), properties_(std::move(properties)) {}

    /// Heading of the group, for people; empty when the file gives none.
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
    /// Takes every field, in file order.
    SeeAlso(std::u16string url, std::u16string name)
        : url_(std::move(url)), name_(std::move(name)) {}

    /// Where the link leads, as the file has it: nothing is resolved.
    const std::u16string& getUrl() const noexcept { return url_; }
    /// The text of the link.
    const std::u16string& getName() const noexcept { return name_; }

    bool operator==(const SeeAlso&) const = default;

private:
    std::u16string url_;
    std::u16string name_;
};

/// An example of an item's use.
class Example {
public:
    /// Takes every field, in file order.
    Example(std::u16string url, std::u16string openCommand, std::u16string title)
        : url_(std::move(url)), openCommand_(std::move(openCommand)), title_(std::move(title)) {}

    /// The page of the example, as the file has it: nothing is resolved.
    const std::u16string& getUrl() const noexcept { return url_; }
    /// The command that opens the example.
    const std::u16string& getOpenCommand() const noexcept { return openCommand_; }
    /// What the example shows, for people.
    const std::u16string& getTitle() const noexcept { return title_; }

    bool operator==(const Example&) const = default;

private:
    std::u16string url_;
    std::u16string openCommand_;
    std::u16string title_;
};

} // namespace reference::property
