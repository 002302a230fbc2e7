#pragma once

#include "docparser/DocResourceParser.hpp"

#include <concepts>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

// Common questions about the results of DocResourceParser, answered with its public operations
// only. All functions may be called from any thread, hold no lock and cache nothing. Since
// version 1.1.

/// The lookup index, as DocResourceParser::getResourceLookupFiles() returns it.
using LookupIndex = ParsingResults<ResourceMap<property::RefItemLookup>>;

/// One record of a lookup index, and where it is. The pointers are never null. They point into the
/// index, which must outlive them unchanged.
struct IndexEntry {
    const std::u16string* section;         ///< the key of its section, such as "orchard"
    const property::HeaderInfo* header;    ///< the header of its section; getProduct() is the
                                           ///< argument that getResourceFile() needs
    const property::RefItemLookup* record; ///< the record itself
    bool isInstalled;                      ///< whether its section is installed
};

/// Calls a function with each record of an index: first the installed sections, then the others;
/// in each section by name, and records with one name in the order of the index.
template <std::invocable<const IndexEntry&> Visit>
void forEachEntry(const LookupIndex& index, Visit visit) {
    const auto visitSections = [&](const ResourceMap<property::RefItemLookup>& sections,
                                   bool isInstalled) {
        for (const auto& [key, section] : sections) {
            for (const auto& [name, records] : section.items) {
                for (const property::RefItemLookup& record : records)
                    visit(IndexEntry{&key, &section.header, &record, isInstalled});
            }
        }
    };
    visitSections(index.installed, true);
    visitSections(index.notInstalled, false);
}

/// How a name matches a text, the best way first.
enum class NameMatch {
    Exact,     ///< the name is the text
    Prefix,    ///< the name begins with the text
    Substring, ///< the name contains the text
    Near       ///< one edit turns the name into the text; two if the text has six code units or
               ///< more, none if it has fewer than three
};

/// Returns how a name matches a text; absent if it does not, or if the text is empty. Code units
/// are compared as they are: to ignore letter case, pass both through the same case folding.
/// Cost: linear, and for a near match the product of the two lengths.
DOCPARSER_EXPORT std::optional<NameMatch> matchName(std::u16string_view text,
                                                    std::u16string_view name);

/// Returns how many code units must be added, removed, replaced or swapped with their neighbour to
/// turn one name into the other; `limit + 1` if it takes more than `limit`.
/// Cost: the product of the lengths, less if they differ by more than the limit.
DOCPARSER_EXPORT std::size_t editDistance(std::u16string_view left, std::u16string_view right,
                                          std::size_t limit);

/// Returns the records whose names match a text as matchName() says, the best matches first.
/// Equally good ones are in the order of forEachEntry().
/// \param loosest  the loosest match to return; NameMatch::Prefix returns exact matches too
/// Cost: linear in the number of names, except that exact matches are looked up.
DOCPARSER_EXPORT std::vector<IndexEntry> findNames(const LookupIndex& index,
                                                   std::u16string_view text, NameMatch loosest);

/// Returns the item that a link leads to: the first one in the order of the sections, or null. A
/// file may repeat a link; the others are at the same key of `DocResource::items`.
/// \param resources  all records of a product, which must outlive the pointer unchanged
DOCPARSER_EXPORT const property::RefItem* findItem(const ResourceMap<property::RefItem>& resources,
                                                   const std::u16string& href);

/// Reads a product and returns its item with a link, as findItem() does; absent if it has none.
/// \throws whatever DocResourceParser::getResourceFile() throws
/// Cost: that of getResourceFile(), so keep its result if you need several items.
DOCPARSER_EXPORT std::optional<property::RefItem> getItem(const std::u16string& product,
                                                          const std::u16string& href);

/// Returns the product files in a folder for the current languages: what
/// DocResourceParser::getAllProducts() returns for the supported languages and the documentation
/// language of the language service.
/// \param folder  such as the lookup folder of DocResourceParser::getReferenceRoots()
/// \throws whatever the language service throws
DOCPARSER_EXPORT ProductLists getAllProducts(const std::u16string& folder);

/// Converts a name to UTF-16; each maximal ill-formed sequence becomes one U+FFFD.
DOCPARSER_EXPORT std::u16string fromUtf8(std::string_view name);

/// Converts a name to UTF-8; each unpaired surrogate becomes one U+FFFD.
DOCPARSER_EXPORT std::string toUtf8(std::u16string_view name);

/// Converts a path to the form that DocResourceParser takes.
/// \throws std::system_error  the path has no UTF-16 form
DOCPARSER_EXPORT std::u16string fromPath(const std::filesystem::path& path);

/// Converts a path that DocResourceParser returns.
/// \throws std::system_error  the text contains an unpaired surrogate, and paths of the system are
///                            bytes
DOCPARSER_EXPORT std::filesystem::path toPath(const std::u16string& path);

} // namespace reference::docparser
