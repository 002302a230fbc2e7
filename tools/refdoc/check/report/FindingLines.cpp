#include "tools/refdoc/check/report/FindingLines.hpp"

#include "tools/refdoc/check/text/Excerpt.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace refdoc::check {

namespace {

constexpr std::string_view kIndent = "    ";

// Paints the text from `start` to the end.
void paintFrom(std::size_t start, Paint paint, bool color, std::string& text) {
    if (color)
        text.replace(start, text.npos, painted(text.substr(start), paint, color));
}

} // namespace

Paint paintOf(Severity severity) {
    switch (severity) {
    case Severity::Error: return Paint::Alarm;
    case Severity::Warning: return Paint::Caution;
    case Severity::Note: return Paint::Dim;
    }
    return Paint::Plain;
}

std::size_t FindingLines::count(const ReportedFinding& finding) const {
    const bool hasExcerpt = style_.excerptWidth && finding.location.position;
    return 1 + (hasExcerpt ? 2 : 0) + finding.related.size() + (finding.morePlaces > 0 ? 1 : 0);
}

void FindingLines::append(const ReportedFinding& finding, std::string& report) {
    appendHead(finding, report);
    if (style_.excerptWidth && finding.location.position)
        appendExcerpt(finding, report);
    for (const ReportedRelation& related : finding.related) {
        report += kIndent;
        related.location.appendTo(report);
        report.append(": ").append(related.message).append(1, '\n');
    }
    if (finding.morePlaces == 0)
        return;
    report.append(kIndent).append("and ").append(counted(finding.morePlaces, "more place"));
    if (finding.files > 1)
        report.append(", ").append(counted(finding.files, "file")).append(" in total");
    report += '\n';
}

void FindingLines::appendHead(const ReportedFinding& finding, std::string& report) const {
    std::size_t start = report.size();
    finding.location.appendTo(report);
    paintFrom(start, Paint::Heading, style_.color, report);
    report += ": ";
    start = report.size();
    report += toWord(finding.severity);
    paintFrom(start, paintOf(finding.severity), style_.color, report);
    report.append(": ").append(finding.message).append(1, ' ');
    if (!finding.location.item.empty())
        report.append(1, '(').append(finding.location.item).append(") ");
    start = report.size();
    report.append(1, '[').append(finding.rule->name).append(1, ']');
    paintFrom(start, Paint::Dim, style_.color, report);
    report += '\n';
}

void FindingLines::appendExcerpt(const ReportedFinding& finding, std::string& report) {
    const std::string_view text = textOf(finding.location.file);
    // An empty file has nothing to show, nor has one that can't be read any more.
    if (text.empty())
        return;
    const std::size_t offset = std::min(finding.location.position->offset, text.size());
    const Token token = JsonLexer(text.substr(offset)).next();
    const std::size_t width = std::max(*style_.excerptWidth, kIndent.size()) - kIndent.size();
    const Excerpt excerpt = excerptOf(text, offset, token.begin == 0 ? token.end : 1, width);
    const std::string marker = painted(excerpt.marker, paintOf(finding.severity), style_.color);
    fmt::format_to(std::back_inserter(report), "{0}{1}\n{0}{2}\n", kIndent, excerpt.line, marker);
}

const std::string& FindingLines::textOf(const std::shared_ptr<const ReportedFile>& file) {
    if (file_ != file) {
        file_ = file;
        text_ = texts_.read(file->source);
    }
    return text_;
}

} // namespace refdoc::check
