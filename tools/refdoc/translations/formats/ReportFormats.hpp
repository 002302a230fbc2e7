#pragma once

#include "tools/refdoc/terminal/PageSetup.hpp"
#include "tools/refdoc/translations/comparison/Report.hpp"

#include <string>

namespace refdoc::translations {

/// How much of a report is printed.
enum class Depth {
    Numbers, ///< the numbers of each product and language
    Entries  ///< also each item and lookup record with a defect, with its position
};

/// Returns tables for people, one for items and one for lookup records, with the totals of each
/// language at the end.
std::string toText(const Report& report, Depth depth, const PageSetup& setup);

/// Returns one document.
std::string toJsonDocument(const Report& report, Depth depth);

/// Returns a line for each product.
std::string toJsonLines(const Report& report, Depth depth);

/// Returns comma-separated values (RFC 4180, but with line feeds alone) with a header: a line for
/// each product, language and type of record with its numbers, or for each entry. A control
/// character becomes its picture.
std::string toCsv(const Report& report, Depth depth);

/// Returns Markdown, as GitHub and GitLab render it: the totals, and a line for each product and
/// language that is not complete. No string of the files is markup.
std::string toMarkdown(const Report& report, Depth depth);

} // namespace refdoc::translations
