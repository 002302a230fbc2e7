#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace refdoc {

/// The documentation of one product. Records are counted, not hrefs.
struct ProductInventory {
    std::u16string product{};
    std::vector<std::u16string>
        languages{};       ///< that have a usable file; English first, the others sorted
    std::size_t items = 0; ///< records in English
    std::map<std::u16string, std::size_t> translations{}; ///< records in each other language
};

/// What the current folders document, in English and all supported languages.
struct Inventory {
    std::vector<ProductInventory> products{}; ///< by name
    /// Installed products and support packages that no section of any file belongs to.
    std::vector<std::u16string> undocumented{};
};

/// Reads every full resource file once. Reads the lookup files too if an installed product has no
/// full resources, because entries in the index are documentation as well.
///
/// A translation counts if a retrieval in its language would use it: not if it lies in the folder
/// of the support packages and the reference root has the English file.
/// \throws whatever the host services throw
Inventory takeInventory();

} // namespace refdoc
