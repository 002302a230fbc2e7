#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/explain/SectionRecords.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace refdoc::translations {

/// The positions of the items or lookup records that the files of a retrieval have.
class Positions {
public:
    /// Reads the files again.
    /// \param isTranslation  of the files whose records are wanted; see FileAccount
    Positions(const reference::docparser::LoadAccount& account, SectionReader& reader,
              bool isTranslation);

    /// Returns the position of an entry; of a dropped one, that of the record that was dropped.
    /// Absent if no file has it.
    std::optional<Position> find(const Entry& entry) const;

private:
    using Records = std::map<std::tuple<std::u16string, std::u16string, std::u16string>, Position>;

    Records kept_;
    Records lost_;
};

/// Adds their positions to the entries of a comparison.
void addPositions(Comparison& comparison, const Positions& english, const Positions& translation);

} // namespace refdoc::translations
