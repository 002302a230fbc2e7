#pragma once

#include "tools/refdoc/translations/comparison/Report.hpp"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::translations {

/// What an item or a record documents: the names of the entities, which no language translates.
using Label = std::u16string;

/// Finds the missing item or record of a product that has probably replaced an orphaned one.
class Renames {
public:
    /// Adds an item or record that is missing. The strings of the key must outlive the object.
    void add(const Key& missing, const Label& label);

    /// Adds the likely replacements to the orphaned entries, from the same section, by these rules:
    /// 1. the one that documents the same names; if there are several, the one in a file of the
    ///    same name, or else the first
    /// 2. the one in a file of the same name, in another folder; none if there are several
    /// 3. the one with the nearest href; left out if the product has very many missing and orphaned
    ///    entries, because each pair would have to be compared
    /// \param labels  of the orphaned entries, in their order
    void addReplacements(std::vector<Entry>& orphaned, const std::vector<Label>& labels) const;

private:
    // Of several missing keys, the maps have the first one.
    struct Section {
        std::map<Label, Key> byLabel{};
        std::map<std::pair<Label, std::u16string_view>, Key> byLabelAndFile{};
        std::map<std::u16string_view, Key> byFile{};
        std::set<std::u16string_view> ambiguousFiles{}; // those of several keys
        std::map<std::u16string_view, Key> byHref{};
        std::vector<std::u16string_view> hrefs{}; // the keys of byHref
    };

    static const Key* find(const Section& section, const Entry& orphaned, const Label& label,
                           bool comparesHrefs);

    std::map<std::u16string_view, Section> sections_;
};

} // namespace refdoc::translations
