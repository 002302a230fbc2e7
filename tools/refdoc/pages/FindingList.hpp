#pragma once

#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/html/HtmlWriter.hpp"
#include "tools/refdoc/pages/SiteModel.hpp"

#include <string_view>
#include <vector>

namespace refdoc::site {

/// The id of the element that has the findings.
inline constexpr std::string_view kFindingsId = "refdoc-findings";

/// Writes the number of findings with a link to the panel; nothing if there are none.
void writeFindingsNote(html::HtmlWriter& writer,
                       const std::vector<check::ReportedFinding>& findings);

/// Writes the panel of findings; nothing if there are none.
void writeFindingsPanel(html::HtmlWriter& writer, std::vector<check::ReportedFinding> findings);

/// Writes findings of `check`, the most severe rules first: for each rule what is wrong, where, and
/// how to fix it. Of a large number of findings, only the most important ones are written.
/// \param text  of the file that all findings are in, for an excerpt at each position; empty for
///              none
void writeFindings(html::HtmlWriter& writer, std::vector<check::ReportedFinding> findings,
                   std::string_view text = {});

/// Returns the findings in files that can be used.
std::vector<check::ReportedFinding> findingsBeside(const Edition& edition,
                                                   const ProductFindings& findings);

/// Writes why files cannot be used, with an excerpt at the position of each error.
void writeBrokenFiles(html::HtmlWriter& writer, const std::vector<BrokenFile>& files);

} // namespace refdoc::site
