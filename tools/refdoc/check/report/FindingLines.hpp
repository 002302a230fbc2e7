#pragma once

#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/terminal/Paint.hpp"

#include <cstddef>
#include <memory>
#include <string>

namespace refdoc::check {

Paint paintOf(Severity severity);

/// Writes the lines of findings in the text report.
class FindingLines {
public:
    explicit FindingLines(const TextStyle& style) : style_(style) {}

    /// Returns the most lines that append() writes.
    std::size_t count(const ReportedFinding& finding) const;

    /// Appends the lines of a finding. Reads its file again if there is to be an excerpt.
    void append(const ReportedFinding& finding, std::string& report);

private:
    void appendHead(const ReportedFinding& finding, std::string& report) const;
    void appendExcerpt(const ReportedFinding& finding, std::string& report);
    const std::string& textOf(const std::shared_ptr<const ReportedFile>& file);

    TextStyle style_;
    SourceTexts texts_;
    std::shared_ptr<const ReportedFile> file_; // that text_ was read from
    std::string text_;
};

} // namespace refdoc::check
