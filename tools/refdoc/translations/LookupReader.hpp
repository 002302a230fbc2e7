#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/explain/SectionRecords.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"
#include "tools/refdoc/translations/Positions.hpp"
#include "tools/refdoc/translations/comparison/Comparisons.hpp"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::translations {

/// Compares the lookup records of all products with their translations.
///
/// A section belongs to the product that its header names in the English index, or in the index of
/// the language if English lacks the section. The library reads the English lookup files in each
/// language, because the merge needs them.
class LookupReader {
public:
    /// Reads the English index.
    /// \throws whatever the host services throw
    explicit LookupReader(bool wantsPositions);

    /// Reads the index of another language.
    /// \returns  a comparison for each product that has records in English or in the language
    /// \throws whatever the host services throw
    std::map<std::u16string, Comparison> compare(const std::u16string& language);

    /// The damaged files of English and of each language that was compared.
    const std::vector<DamagedFile>& damaged() const noexcept { return damaged_; }

private:
    struct Index {
        LookupResults entries{};
        reference::docparser::LoadAccount account{};
    };
    using Products = std::map<std::u16string_view, std::u16string_view>; // by section

    static Index read(const std::u16string& language);
    static void addProducts(const Index& index, Products& products);

    void addAllPositions(const Index& index, std::map<std::u16string, Comparison>& comparisons);

    bool wantsPositions_;
    SectionReader reader_{std::nullopt}; // most languages share the English files
    Index english_;
    std::optional<Positions> englishPositions_; // read when they are first needed
    Products products_;
    std::vector<DamagedFile> damaged_;
};

} // namespace refdoc::translations
