#pragma once

#include <string>
#include <utility>
#include <vector>

namespace docproduct {

class ProductFamily {};

class DocProduct {
public:
    explicit DocProduct(std::string shortName) : shortName_(std::move(shortName)) {}

    const std::string& getShortName() const noexcept { return shortName_; }

private:
    std::string shortName_;
};

/// A product of the catalogue. Stores only the short name.
class TopLevelDocProduct : public DocProduct {
public:
    TopLevelDocProduct(std::string displayName, std::string helpLocation, std::string shortName,
                       std::string baseCode, std::string altShortName, std::string availability,
                       std::vector<ProductFamily> families);
};

} // namespace docproduct
