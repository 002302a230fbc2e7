#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace refdoc::check {

/// An item of full resources.
struct Page {
    std::u16string href;
    bool hasNames; ///< it documents entities
};

/// A section of full resources, reduced to what other files refer to. The full records of all
/// products would not fit into memory together.
struct FullSection {
    std::u16string helpLocation;
    std::vector<Page> pages;           ///< by href
    std::vector<std::u16string> links; ///< the distinct see-also links of all items
};

/// A section of the lookup index, as the library returns it.
struct LookupSection {
    bool isInstalled;
    reference::docparser::DocResource<reference::property::RefItemLookup> resource;
};

/// Everything that the library returns in one language. Sections are keyed by their section keys,
/// full ones below the name of their product.
struct LanguageContents {
    reference::docparser::LoadAccount account{};
    std::map<std::u16string, LookupSection> lookups{};
    std::map<std::u16string, std::map<std::u16string, FullSection>> products{};

    /// Returns whether an item of full resources documents names.
    bool hasNames() const;
};

/// The names of all products that have a full resource file in some language, or a section in the
/// lookup index.
using ProductNames = std::set<std::u16string>;

/// Adds the products whose full resource files are in the folders of the current settings, in any
/// of these languages.
void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names);

/// Retrieves everything in one language, under a load account.
/// \param names  the products to retrieve; products of the lookup index are added
/// \param step   called after each retrieval, on several threads at a time
LanguageContents retrieveLanguage(const std::u16string& language, ProductNames& names,
                                  const std::function<void()>& step);

} // namespace refdoc::check
