#pragma once

#include "docparser/account/LoadAccount.hpp"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace refdoc::check {

// What the host would get in one language, cut down to what one file can say of another.

/// An item of full resources.
struct Page {
    std::u16string href;
    bool hasNames; ///< it documents entities
};

struct FullSection {
    std::u16string helpLocation;
    std::vector<Page> pages;
    std::vector<std::u16string> links; ///< the see-also links of all items
};

struct LookupRecord {
    std::u16string name;
    std::u16string href;
};

struct LookupSection {
    std::u16string product; ///< whose full resources its records lead to
    std::u16string helpLocation;
    bool isInstalled;
    std::vector<LookupRecord> records;
};

/// All retrievals of one language. Sections go by their keys, full ones below their product's name.
struct LanguageRun {
    std::u16string language;
    reference::docparser::LoadAccount account;
    std::map<std::u16string, LookupSection> lookups;
    std::map<std::u16string, std::map<std::u16string, FullSection>> products;
};

/// The names of all products that have a full resource file in some language, or a section in the
/// lookup index.
using ProductNames = std::set<std::u16string>;

/// Adds the products whose full resource files lie in the folders of the current settings, in any
/// of these languages.
void addFullProducts(const std::vector<std::u16string>& languages, ProductNames& names);

/// Runs the retrievals of one language under a load account.
/// \param names  the products to retrieve; those of the lookup index join them
/// \param step   called after each retrieval
LanguageRun runLanguage(const std::u16string& language, ProductNames& names,
                        const std::function<void()>& step);

} // namespace refdoc::check
