#pragma once

#include "tools/refdoc/pages/SiteModel.hpp"

#include <set>
#include <string>

namespace refdoc::site {

/// Returns the names of the products that have a full resource file in a language of the site.
/// \throws whatever the host services throw
std::set<std::u16string> siteProducts(const SiteLanguages& languages);

/// Reads a product in each language, and where its records come from. It has no pages yet.
/// \param account  receives the account of each retrieval that finds no resources
/// \throws std::runtime_error  a file changed while it was read
/// \throws whatever the host services throw
Product readProduct(const std::u16string& name, const SiteLanguages& languages,
                    reference::docparser::LoadAccount& account);

} // namespace refdoc::site
