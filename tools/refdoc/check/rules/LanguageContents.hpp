#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"

#include <functional>
#include <map>
#include <memory>
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

/// The full resources of one product.
struct FullProduct {
    std::map<std::u16string, FullSection> sections{}; ///< by section key
    std::vector<std::u16string> paths{};              ///< of the files that were considered
};

/// Products by their names.
using FullProducts = std::map<std::u16string, std::shared_ptr<const FullProduct>>;

/// Everything that the library returns in one language.
struct LanguageContents {
    reference::docparser::LoadAccount account{};       ///< without the files of English products
    std::map<std::u16string, LookupSection> lookups{}; ///< by section key
    FullProducts products{};                           ///< only those with sections

    /// Returns whether an item of full resources documents names.
    bool hasNames() const;
};

/// The names of all products that have a full resource file in some language, or a section in the
/// lookup index.
using ProductNames = std::set<std::u16string>;

/// Adds the products whose full resource files are in the folders of the current settings, in any
/// of these languages.
void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names);

/// Retrieves everything in one language, under a load account. A product without a file in this
/// language is that of `english`, which saves reading its files again.
/// \param names    the products to retrieve; products of the lookup index are added
/// \param english  the products in English; empty while they are retrieved
/// \param step     called after each product and the index, on several threads at a time
LanguageContents retrieveLanguage(const std::u16string& language, ProductNames& names,
                                  const FullProducts& english, const std::function<void()>& step);

} // namespace refdoc::check
