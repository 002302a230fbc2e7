#pragma once

#include "docparser/account/LoadAccount.hpp"

#include <compare>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::translations {

/// Names an item or a lookup record. Views of strings that must outlive it.
struct Key {
    std::u16string_view section{}; ///< the key of the section
    std::u16string_view name{};    ///< of a lookup record; empty for an item
    std::u16string_view href{};

    auto operator<=>(const Key&) const = default;
};

/// What is noteworthy about an item or a lookup record of a translation.
enum class Defect {
    Missing,   ///< English has it, the translation does not
    Orphaned,  ///< the translation has it, English does not
    Identical, ///< both have it, but the translation has no text of its own
    OutOfStep, ///< both have it, but with other fields that do not depend on the language
    Dropped    ///< a file of the translation has it, but the merge drops it; only lookup records
};

/// All defects, in the order of the reports.
inline constexpr Defect kDefects[] = {Defect::Missing, Defect::Orphaned, Defect::Identical,
                                      Defect::OutOfStep, Defect::Dropped};

/// Returns the word for a defect: "missing", "orphaned", "identical", "outOfStep" or "dropped".
std::string_view toWord(Defect defect) noexcept;

/// Where an item or a record is.
struct Position {
    std::u16string path{};
    std::u16string entry{}; ///< of a package; empty for a file
    std::optional<reference::docparser::TextPlace> place{};

    bool operator==(const Position&) const = default;
};

/// A missing item or lookup record that probably is an orphaned one under another name or href.
struct Replacement {
    std::u16string name{}; ///< of a lookup record; empty for an item
    std::u16string href{};

    bool operator==(const Replacement&) const = default;
};

/// One item or lookup record with a defect.
struct Entry {
    Defect defect = Defect::Missing;
    std::u16string section{}; ///< the key of the section
    std::u16string name{};    ///< of a lookup record; empty for an item
    std::u16string href{};
    std::vector<std::string_view> fields{};   ///< OutOfStep: the fields of the record that differ
    std::optional<Replacement> replacement{}; ///< Orphaned: what probably has replaced it
    std::optional<Position> position{}; ///< in the English file if missing, else in the translation

    bool operator==(const Entry&) const = default;
};

/// The items or lookup records of one product in one language, compared with the English ones.
/// Items are counted by section and href, lookup records by section, name and href.
struct Comparison {
    std::size_t english = 0;    ///< in English
    std::size_t translated = 0; ///< those that the translation has too, without the identical ones
    std::vector<Entry> entries{}; ///< sorted by defect, section, name and href

    std::size_t count(Defect defect) const noexcept;
    bool isEmpty() const noexcept { return english == 0 && entries.empty(); }

    bool operator==(const Comparison&) const = default;
};

/// The numbers of a comparison, or of several together.
struct Counts {
    std::size_t english = 0;
    std::size_t translated = 0;
    std::size_t defects[std::size(kDefects)] = {}; ///< by Defect

    void add(const Comparison& comparison) noexcept;
    std::size_t of(Defect defect) const noexcept {
        return defects[static_cast<std::size_t>(defect)];
    }

    /// Returns the tenths of a percent that are translated, rounded down; 1000 if English has none.
    std::size_t share() const noexcept;

    /// Returns whether less than a percentage is translated.
    bool isBelow(std::size_t percent) const noexcept { return share() < percent * 10; }
};

/// A product in one language other than English.
struct LanguageReport {
    std::u16string language{};
    Comparison items{};
    Comparison lookup{};
};

struct ProductReport {
    std::u16string product{};
    bool hasEnglish = false;                 ///< whether an English full resource file can be used
    std::vector<LanguageReport> languages{}; ///< all languages of the report, in its order
};

/// A file that cannot be used. What it should have counts as missing.
struct DamagedFile {
    std::u16string language{};
    reference::docparser::FileAccount file{};
};

struct Report {
    std::vector<std::u16string> languages{}; ///< never English
    std::vector<ProductReport> products{};   ///< sorted by name
    std::vector<DamagedFile> damaged{};
};

/// The numbers of all products in one language.
struct Totals {
    Counts items{};
    Counts lookup{};
};

/// Returns the totals of each language of the report, in its order.
std::vector<Totals> totalsOf(const Report& report);

} // namespace refdoc::translations
