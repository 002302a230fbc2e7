#pragma once

#include "platform/Cxx20.hpp"

#include <string>
#include <utility>

namespace reference::property {

/// The header of a resource file, or of one section of its "supportPackages".
class HeaderInfo {
public:
    /// Takes every field: six strings of the file, and the requested product name.
    HeaderInfo(std::u16string schema, std::u16string schemaVersion, std::u16string productName,
               std::u16string baseCode, std::u16string helpFolder, std::u16string helpLocation,
               std::u16string product)
        : schema_(std::move(schema)),
          schemaVersion_(std::move(schemaVersion)),
          productName_(std::move(productName)),
          baseCode_(std::move(baseCode)),
          helpFolder_(std::move(helpFolder)),
          helpLocation_(std::move(helpLocation)),
          product_(std::move(product)) {}

    /// Name of the format; empty if the file has none.
    const std::u16string& getSchema() const noexcept { return schema_; }
    /// Version of the format; empty if the file has none.
    const std::u16string& getSchemaVersion() const noexcept { return schemaVersion_; }
    /// The product's display name.
    const std::u16string& getProductName() const noexcept { return productName_; }
    /// The product's code; in a ResourceMap the key of a section of "supportPackages".
    const std::u16string& getBaseCode() const noexcept { return baseCode_; }
    /// The product's help folder; in a ResourceMap the key of a file's main section.
    const std::u16string& getHelpFolder() const noexcept { return helpFolder_; }
    /// The location of the product's pages.
    const std::u16string& getHelpLocation() const noexcept { return helpLocation_; }
    /// The product name that the caller requested; not a string of the file.
    const std::u16string& getProduct() const noexcept { return product_; }

    bool operator==(const HeaderInfo&) const = default;

private:
    std::u16string schema_;
    std::u16string schemaVersion_;
    std::u16string productName_;
    std::u16string baseCode_;
    std::u16string helpFolder_;
    std::u16string helpLocation_;
    std::u16string product_;
};

} // namespace reference::property
