#pragma once

#include "platform/catalogue/DocProductCollector.hpp"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace reference::docparser {

// Queries the application's services for installed products and support packages. Nothing is cached
// here.

using TopLevelProducts = std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>;
using SupportPackages = std::unordered_set<std::u16string>;

/// Returns the installed top-level products of the catalogue, never null.
/// \throws whatever the catalogue throws
std::shared_ptr<const TopLevelProducts> getCatalogueProducts();

/// Returns the folder of the support packages' full resource files: "help", "docCatalog" and
/// "referenceapi" below the support-package root, by plain concatenation.
/// \throws whatever the support-package root reader throws
std::u16string findSupportPackageFolder();

/// Returns the hardware support packages installed below the root of a support-package folder.
/// \param folder  the folder of the resource files, three levels below the root
/// \returns       empty if the query fails
SupportPackages findHardwareSupportPackages(const std::u16string& folder);

/// Returns catalogue records with these short names; all other fields are placeholders.
std::shared_ptr<const TopLevelProducts> makeTestProducts(const std::vector<std::u16string>& names);

/// Returns a set of these support packages.
std::shared_ptr<const SupportPackages>
makeTestSupportPackages(const std::vector<std::u16string>& names);

/// Returns whether one of the products has this short name, compared byte by byte.
bool containsShortName(const TopLevelProducts& products, const std::string& shortName);

} // namespace reference::docparser
