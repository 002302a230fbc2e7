#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <string_view>

namespace refdoc {

/// Returns the manual page in the macros of man(7), UTF-8.
///
/// \param version  the version of the program
/// \param date     the date of the page, as in "2026-03-01"
std::string manPage(const CommandTable& table, std::string_view version, std::string_view date);

} // namespace refdoc
