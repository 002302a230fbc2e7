#pragma once

#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <string_view>

namespace refdoc {

/// The manual page, in the macros of man(7), UTF-8.
/// \param version  of the program
/// \param date     of the page, as in "2026-03-01"
std::string manPage(const CommandTable& table, std::string_view version, std::string_view date);

} // namespace refdoc
