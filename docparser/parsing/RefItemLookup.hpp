#pragma once

#include "docparser/parsing/Enumerations.hpp"

#include <string>
#include <utility>

namespace reference::property {

/// One entry of the lookup index: where the page of a name is, and what it is about.
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

    /// The name that is looked up; also the entry's key in a section's items.
    const std::u16string& getName() const noexcept { return name_; }
    /// What kind of thing the name stands for; RefEntityType::Function when the file does not tell.
    RefEntityType::Value getEntityType() const noexcept { return entityType_; }
    /// One line on what the item is for.
    const std::u16string& getRefPurpose() const noexcept { return refPurpose_; }
    /// Whether the file has the key "deprecated" for the item, whatever value it gives it.
    bool getDeprecated() const noexcept { return deprecated_; }
    /// Link to the item's page.
    const std::u16string& getHref() const noexcept { return href_; }
    /// Which kind of function it is; FunctionType::Function when the file does not tell.
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
