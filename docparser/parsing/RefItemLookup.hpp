#pragma once

#include "docparser/parsing/Enumerations.hpp"

#include <string>
#include <utility>

namespace reference::property {

/// One entry of the lookup index: a name, what it names, and the link to its page.
class RefItemLookup {
public:
    /// Takes every field.
    RefItemLookup(std::u16string name, RefEntityType::Value entityType, std::u16string refPurpose,
                  bool deprecated, std::u16string href, FunctionType::Value functionType)
        : name_(std::move(name)),
          entityType_(entityType),
          refPurpose_(std::move(refPurpose)),
          deprecated_(deprecated),
          href_(std::move(href)),
          functionType_(functionType) {}

    /// The name to look up; also the entry's key in DocResource::items.
    const std::u16string& getName() const noexcept { return name_; }
    /// RefEntityType::Function if the file has no type or an unknown one.
    RefEntityType::Value getEntityType() const noexcept { return entityType_; }
    /// The item's purpose in one line.
    const std::u16string& getRefPurpose() const noexcept { return refPurpose_; }
    /// Whether the item has the key "deprecated", with any value, even false.
    bool getDeprecated() const noexcept { return deprecated_; }
    /// Link to the item's page.
    const std::u16string& getHref() const noexcept { return href_; }
    /// FunctionType::Function if the file has no type or an unknown one.
    FunctionType::Value getFunctionType() const noexcept { return functionType_; }

    bool operator==(const RefItemLookup&) const = default;

private:
    std::u16string name_;
    RefEntityType::Value entityType_;
    std::u16string refPurpose_;
    bool deprecated_;
    std::u16string href_;
    FunctionType::Value functionType_;
};

} // namespace reference::property
