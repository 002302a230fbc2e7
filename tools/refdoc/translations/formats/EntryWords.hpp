#pragma once

#include "tools/refdoc/translations/comparison/Report.hpp"

#include <string>

namespace refdoc::translations {

// The parts of a report in words for people.

/// Returns a share as a percentage with one digit after the point: "93.7".
std::string percentText(const Counts& counts);

/// Returns "missing", "orphaned", "identical", "out of step" or "dropped".
std::u16string titleOf(Defect defect);

/// Returns the fields of an entry that is out of step as "inputs, properties", or what an orphaned
/// one was probably renamed to; otherwise an empty string.
std::u16string remarkOn(const Entry& entry);

/// Returns "FILE:LINE:COLUMN" or "PACKAGE!ENTRY:LINE:COLUMN"; empty if the position is not known.
std::u16string positionText(const Entry& entry);

} // namespace refdoc::translations
