#pragma once

#include <string>
#include <utility>
#include <vector>

namespace docproduct {

/// A family that products are grouped under in the documentation, by its name (UTF-8).
class ProductFamily {
public:
    /// \param name  UTF-8
    explicit ProductFamily(std::string name) : name_(std::move(name)) {}

    /// The name that people read, UTF-8.
    const std::string& getName() const noexcept { return name_; }

    bool operator==(const ProductFamily&) const = default;

private:
    std::string name_;
};

/// What the documentation catalogue knows of any product; every text is UTF-8 and may be empty.
class DocProduct {
public:
    /// Takes every text; only `shortName` matters to the parser.
    DocProduct(std::string displayName, std::string helpLocation, std::string shortName,
               std::string baseCode, std::string altShortName, std::string availability)
        : displayName_(std::move(displayName)),
          helpLocation_(std::move(helpLocation)),
          shortName_(std::move(shortName)),
          baseCode_(std::move(baseCode)),
          altShortName_(std::move(altShortName)),
          availability_(std::move(availability)) {}

    /// The name that people read.
    const std::string& getDisplayName() const noexcept { return displayName_; }
    /// Where the product's pages lie below the help folder.
    const std::string& getHelpLocation() const noexcept { return helpLocation_; }
    /// The name that identifies the product; compared byte for byte.
    const std::string& getShortName() const noexcept { return shortName_; }
    /// The code that licences and installers use for the product.
    const std::string& getBaseCode() const noexcept { return baseCode_; }
    /// A second name that the product goes by.
    const std::string& getAltShortName() const noexcept { return altShortName_; }
    /// Where the product can be used, in the catalogue's words.
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

/// A product that stands at the top level of the documentation and belongs to some families.
class TopLevelDocProduct final : public DocProduct {
public:
    /// Takes every field. Only `shortName` matters to the parser; a host leaves empty what it does
    /// not need itself.
    TopLevelDocProduct(std::string displayName, std::string helpLocation, std::string shortName,
                       std::string baseCode, std::string altShortName, std::string availability,
                       std::vector<ProductFamily> families)
        : DocProduct(std::move(displayName), std::move(helpLocation), std::move(shortName),
                     std::move(baseCode), std::move(altShortName), std::move(availability)),
          families_(std::move(families)) {}

    /// The families that the product is grouped under, in the host's order; may be empty.
    const std::vector<ProductFamily>& getFamilies() const noexcept { return families_; }

    bool operator==(const TopLevelDocProduct&) const = default;

private:
    std::vector<ProductFamily> families_;
};

} // namespace docproduct
