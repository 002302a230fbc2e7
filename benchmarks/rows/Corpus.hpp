#pragma once

#include "benchmarks/peers/PeerRetrieval.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// A resource file's text and the product that it is read for.
struct ProductText {
    std::string text;
    std::u16string product;
};

/// The products and texts of one reference root that the rows work on.
class Corpus {
public:
    /// Lists the root's products and makes the root the library's. Two products in three count as
    /// installed.
    /// \throws std::exception  the root has no reference folders
    explicit Corpus(std::filesystem::path root);

    const std::filesystem::path& fullFolder() const noexcept { return fullFolder_; }
    const std::filesystem::path& lookupFolder() const noexcept { return lookupFolder_; }
    /// The names of the products that have an English full file, sorted.
    const std::vector<std::u16string>& products() const noexcept { return products_; }

    /// Leaves only the product whose English full file is of middle length.
    void keepTypicalProduct();

    /// Every full file of the products, translations included.
    std::vector<ProductText> fullTexts() const;
    /// The full files of one product that are read in a language, English first.
    std::vector<ProductText> fullTexts(const std::u16string& product,
                                       const std::string& language) const;
    /// The lookup files that a retrieval in a language reads, in its order.
    std::vector<ProductText> lookupTexts(const std::string& language) const;

    LookupSettings lookupSettings(const std::string& language) const;
    /// Puts the library's host in a language.
    void setLanguage(const std::string& language) const;

private:
    std::filesystem::path fullFolder_;
    std::filesystem::path lookupFolder_;
    std::vector<std::u16string> products_;
    std::vector<std::u16string> installed_;
};

} // namespace reference::docparser::benchmarks
