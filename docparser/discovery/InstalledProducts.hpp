#pragma once

#include "platform/catalogue/DocProductCollector.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace reference::docparser {

// What the application's services say about installed products and support packages. Nothing is
// kept here: each call asks.

using TopLevelProducts = std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>;
using SupportPackages = std::unordered_set<std::u16string>;

/// The installed top-level products of the catalogue, never null.
/// \throws whatever the catalogue throws
std::shared_ptr<const TopLevelProducts> getCatalogueProducts();

/// The folder that support packages keep their full resource files in: "help", "docCatalog" and
/// "referenceapi" below the support-package root, by plain concatenation.
/// \throws whatever the support-package root reader throws
std::u16string findSupportPackageFolder();

/// The hardware support packages that are installed where a support-package folder belongs.
/// \param folder  the folder of the resource files; the query gets it less its last three levels
/// \returns       the names; none when the query fails
SupportPackages findHardwareSupportPackages(const std::u16string& folder);

/// Catalogue records for made-up products: the names count, all other texts are placeholders.
std::shared_ptr<const TopLevelProducts> makeTestProducts(const std::vector<std::u16string>& names);

/// A set of support packages of the given names.
std::shared_ptr<const SupportPackages>
makeTestSupportPackages(const std::vector<std::u16string>& names);

/// Whether one of the products has this short name, as UTF-8 and byte for byte.
bool containsShortName(const TopLevelProducts& products, const std::string& shortName);

} // namespace reference::docparser
