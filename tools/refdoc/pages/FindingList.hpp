#pragma once

#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/html/HtmlWriter.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <string_view>
#include <vector>

namespace refdoc::site {

/// Writes findings of `check`, the most severe rules first: for each rule what is wrong, where, and
/// how to fix it. Of a large number of findings, only the most important ones are written.
/// \param text  of the file that all findings are in, for an excerpt at each position; empty for
///              none
void writeFindings(html::HtmlWriter& writer, std::vector<check::ReportedFinding> findings,
                   std::string_view text = {});

/// Writes why files cannot be used, with an excerpt at the position of each error.
void writeBrokenFiles(html::HtmlWriter& writer, const std::vector<BrokenFile>& files);

} // namespace refdoc::site
