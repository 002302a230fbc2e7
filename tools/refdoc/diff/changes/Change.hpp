#pragma once

#include <boost/json/value.hpp>

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::diff {

// The differences of two documentation trees, OLD and NEW. All strings are UTF-8 and come from the
// files as they are, so they may contain controls and bidirectional text.

/// What a change is about and what happened to it. A change with an id that ends in "-added" has
/// only a new value, one with "-removed" only an old value.
enum class ChangeId {
    ProductAdded,
    ProductRemoved,
    SectionAdded,
    SectionRemoved,
    SectionChanged, ///< a field of the section's header
    ItemAdded,
    ItemRemoved,
    ItemMoved,
    ItemChanged, ///< a field of an item
    LookupAdded,
    LookupRemoved,
    LookupChanged ///< a field of an entry of the lookup index
};

/// How much a change matters to those who link to the documentation. The most important class comes
/// first.
enum class ChangeClass {
    Breaking, ///< something that others may link to or rely on is gone, or a default changed
    Notable,  ///< an addition or a deprecation
    Textual   ///< any other difference
};

/// One difference. Its JSON pointers and values are those of the records as JSON, with the members
/// that docparser/json/RecordFields.hpp names.
struct Change {
    ChangeId id{};
    ChangeClass changeClass{};
    std::string product{};
    std::string section{}; ///< the key; empty for a product

    /// The link of the item or entry in OLD, or in NEW if it was added; empty for a product or
    /// section.
    std::string href{};

    /// The names to show: the entities that the item documents, joined by ", ", or the name of the
    /// entry. That of NEW unless the record was removed. Empty for a product or section.
    std::string name{};

    /// A JSON pointer within the record or header, "" for the whole record.
    ///
    /// Elements of arrays are matched by their names, links or titles, so one element may have two
    /// indices. The pointer has the indices of NEW, or of OLD if the value was removed. It leads to
    ///
    /// - a string, number or boolean: the value changed from `oldValue` to `newValue`;
    /// - an element of an array: the element was added or removed, and one of the values is null;
    /// - an array: its elements have another order. The values are arrays with the names, links or
    ///   titles of all elements, in the order of each side.
    std::string field{};

    /// The pointer with the indices of OLD. The same as `field` unless an element around the value
    /// has another index.
    std::string oldField{};

    /// The value in OLD; null if something was added. For a product an object with the members
    /// "resources" and "lookup", both with an object {"header", "items"} for each section key; for
    /// a section an object with the members "resources" and "lookup", each an object {"header",
    /// "items"} or null. "items" maps links, or names of entries, to arrays of records.
    boost::json::value oldValue{};
    boost::json::value newValue{}; ///< the same for NEW

    /// The link in NEW if an item moved: for ItemMoved and the changes of the fields of such an
    /// item. Otherwise empty. Links within the item that begin with its own link follow the move
    /// and are no changes. The `field` of ItemMoved is "/href".
    std::string newHref{};

    /// For ItemMoved, how sure it is that both are the same item, in percent. Otherwise 100.
    int certainty = 100;

    // The index among the records of the same section and link, or of the same name for entries;
    // absent if there is no such record on that side, or if both sides have at most one.
    std::optional<std::size_t> oldIndex{};
    std::optional<std::size_t> newIndex{};

    bool operator==(const Change&) const = default;
};

/// All changes of one product. In the order of products, sections (each followed by the fields of
/// its header), items and entries; by section key and link or name, and a record's fields in the
/// order of the format. Moved items stand where their old link belongs, followed by their fields.
struct ProductChanges {
    std::string product{};
    std::vector<Change> changes{}; ///< never empty when it is passed to an output
};

/// Which trees have a damaged file.
enum class Side { Old, New, Both };

/// A file or package entry that could not be read and was left out of the comparison.
struct DamagedFile {
    Side side{};
    std::string path{};  ///< as messages show it; for an entry, its package, "!" and the entry
    std::string error{}; ///< a description with the position, in English
};

/// What was found in all products. It counts only the changes that are printed.
struct Summary {
    std::optional<ChangeClass> only{};   ///< the class that is printed; absent for all
    std::array<std::size_t, 3> counts{}; ///< by ChangeClass
    std::vector<DamagedFile> damagedFiles{};

    std::size_t count(ChangeClass changeClass) const {
        return counts.at(static_cast<std::size_t>(changeClass));
    }
    std::size_t total() const { return counts[0] + counts[1] + counts[2]; }
};

/// Returns the word for an id, such as "item-added". It never changes between versions.
std::string_view toWord(ChangeId id) noexcept;
/// Returns the word for a class, such as "breaking". It never changes between versions.
std::string_view toWord(ChangeClass changeClass) noexcept;
/// Returns the word for a side: "old", "new" or "both".
std::string_view toWord(Side side) noexcept;

} // namespace refdoc::diff
