#pragma once

#include "platform/Cxx20.hpp"

#include <string>
#include <utility>
#include <vector>

namespace docproduct {

/// A family that groups products in the documentation.
class ProductFamily {
public:
    /// \param name  the display name, UTF-8
    explicit ProductFamily(std::string name) : name_(std::move(name)) {}

    /// Returns the display name, UTF-8.
    const std::string& getName() const noexcept { return name_; }

    bool operator==(const ProductFamily&) const = default;

private:
    std::string name_;
};

/// The data of a product in the documentation catalogue. All strings are UTF-8 and may be empty.
class DocProduct {
public:
    /// The parser uses only `shortName`.
    DocProduct(std::string displayName, std::string helpLocation, std::string shortName,
               std::string baseCode, std::string altShortName, std::string availability)
        : displayName_(std::move(displayName)),
          helpLocation_(std::move(helpLocation)),
          shortName_(std::move(shortName)),
          baseCode_(std::move(baseCode)),
          altShortName_(std::move(altShortName)),
          availability_(std::move(availability)) {}

    /// Returns the display name.
    const std::string& getDisplayName() const noexcept { return displayName_; }
    /// Returns the folder of the product's pages, relative to the help folder.
    const std::string& getHelpLocation() const noexcept { return helpLocation_; }
    /// Returns the name that identifies the product; compared byte by byte.
    const std::string& getShortName() const noexcept { return shortName_; }
    /// Returns the code that licences and installers use for the product.
    const std::string& getBaseCode() const noexcept { return baseCode_; }
    /// Returns an alternative short name.
    const std::string& getAltShortName() const noexcept { return altShortName_; }
    /// Returns where the product can be used, in the terms of the catalogue.
    const std::string& getAvailability() const noexcept { return availability_; }

    bool operator==(const DocProduct&) const = default;

protected:
    ~DocProduct() = default;
    DocProduct(const DocProduct&) = default;
    DocProduct(DocProduct&&) = default;
    DocProduct& operator=(const DocProduct&) = default;
    DocProduct& operator=(DocProduct&&) = default;

private:
    std::string displayName_;
    std::string helpLocation_;
    std::string shortName_;
    std::string baseCode_;
    std::string altShortName_;
    std::string availability_;
};

/// A product at the top level of the documentation.
class TopLevelDocProduct final : public DocProduct {
public:
    /// The parser uses only `shortName`; a host application may leave the rest empty.
    TopLevelDocProduct(std::string displayName, std::string helpLocation, std::string shortName,
                       std::string baseCode, std::string altShortName, std::string availability,
                       std::vector<ProductFamily> families)
        : DocProduct(std::move(displayName), std::move(helpLocation), std::move(shortName),
                     std::move(baseCode), std::move(altShortName), std::move(availability)),
          families_(std::move(families)) {}

    /// Returns a product that has only a short name; all that the parser needs. Since version 1.1.
    /// \param shortName  UTF-8
    static TopLevelDocProduct fromShortName(std::string shortName) {
        return {"", "", std::move(shortName), "", "", "", {}};
    }

    /// Returns the families of the product in the order of the host application; may be empty.
    const std::vector<ProductFamily>& getFamilies() const noexcept { return families_; }

    bool operator==(const TopLevelDocProduct&) const = default;

private:
    std::vector<ProductFamily> families_;
};

} // namespace docproduct
