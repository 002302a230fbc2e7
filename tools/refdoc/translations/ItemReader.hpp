#pragma once

#include "tools/refdoc/translations/comparison/Report.hpp"

#include <set>
#include <string>
#include <vector>

namespace refdoc::translations {

/// A product, and those of its files that cannot be used.
struct ReadItems {
    ProductReport report{};
    std::vector<DamagedFile> damaged{};
};

/// Compares the full resources of products with their translations. Reads each file once, and those
/// with defects again if positions are wanted.
///
/// In English, the library reads each language file alone, as that of a product whose name ends
/// with
/// "_" and the language.
class ItemReader {
public:
    /// \param languages  without English
    /// \throws whatever the host services throw
    ItemReader(std::vector<std::u16string> languages, bool wantsPositions);

    /// Any thread may call this at any time.
    /// \throws whatever the host services throw
    ReadItems read(const std::u16string& product) const;

private:
    std::vector<std::u16string> languages_;
    bool wantsPositions_;
    std::set<std::u16string> fileNames_;
};

} // namespace refdoc::translations
