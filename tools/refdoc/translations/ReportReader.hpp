#pragma once

#include "tools/refdoc/terminal/Progress.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <string>
#include <vector>

namespace refdoc::translations {

/// Compares the documentation in each supported language with the English one.
/// \param products        their names; empty: all. Those that do not exist are left out
/// \param wantsPositions  whether the entries of the report have positions, which takes longer
/// \throws std::runtime_error  English is the only language
/// \throws whatever the host services throw
Report readReport(const std::vector<std::u16string>& products, bool wantsPositions,
                  Progress& progress);

} // namespace refdoc::translations
