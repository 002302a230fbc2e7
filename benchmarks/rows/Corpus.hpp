#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

/// The room at the end of a text that saves simdjson from copying it.
inline constexpr std::size_t kSpareBytes = 64;

/// Reads a file, with kSpareBytes of room at the end; empty if it cannot be read.
std::string readFile(const std::string& path);

/// The products and texts of one reference root.
class Corpus {
public:
    /// Lists the root's products and makes the root the library's.
    /// \param languages  the supported languages; files of others count as products
    /// \throws std::filesystem::filesystem_error  the root has no folder of full files
    Corpus(const std::filesystem::path& root, std::vector<std::string> languages);

    const std::vector<std::string>& languages() const { return languages_; }
    /// The products that have an English full file, in order.
    const std::vector<std::u16string>& products() const { return products_; }
    const std::u16string& lookupFolder() const { return lookupFolder_; }
    /// Two products in three count as installed.
    bool isInstalled(const std::u16string& product) const;
    /// Returns whether a file name without its extension ends in a language other than English.
    bool isTranslation(const std::string& stem) const;
    std::string fullFile(const std::u16string& product, const std::string& language) const;

    /// Removes all products except the one whose English full file has the median size.
    void keepTypicalProduct();

    /// Makes `language` the library's documentation language.
    void setLanguage(const std::string& language) const;

    /// Returns a product's full files in some languages; those that do not exist are left out.
    std::vector<std::string> fullTexts(const std::u16string& product,
                                       const std::vector<std::string>& languages) const;
    /// Returns the lookup files that a retrieval in the library's language reads, in its order,
    /// each after its product.
    std::vector<std::pair<std::u16string, std::string>> lookupTexts() const;

private:
    std::vector<std::string> languages_;
    std::filesystem::path fullFolder_;
    std::u16string lookupFolder_;
    std::vector<std::u16string> products_;
    std::vector<std::u16string> installed_; // in order
};

} // namespace reference::docparser::benchmarks
