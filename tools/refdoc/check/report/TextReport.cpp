#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/terminal/Paint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace refdoc::check {

namespace {

Paint paintOf(Severity severity) {
    switch (severity) {
    case Severity::Error: return Paint::Alarm;
    case Severity::Warning: return Paint::Caution;
    case Severity::Note: return Paint::Dim;
    }
    return Paint::Plain;
}

std::string counted(std::size_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string summaryText(const Summary& summary) {
    std::string text;
    for (const auto& [count, word] :
         {std::pair(summary.errors, "error"), std::pair(summary.warnings, "warning"),
          std::pair(summary.notes, "note")}) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + counted(count, word);
    }
    const std::string checked = summary.checkedFiles == 0
                                    ? "no files checked"
                                    : counted(summary.checkedFiles, "file") + " checked";
    if (text.empty())
        return summary.checkedFiles == 0 ? checked + '\n' : checked + ", no problems found\n";
    text = fmt::format("{} in {}; {}\n", text, counted(summary.files, "file"), checked);
    if (summary.consequences > 0)
        text += fmt::format("{} of these findings not shown; see --show-consequences\n",
                            counted(summary.consequences, "consequence"));
    return text;
}

// Paints the text from `start` to the end.
void paintFrom(std::size_t start, Paint paint, bool color, std::string& text) {
    if (color)
        text.replace(start, text.npos, painted(text.substr(start), paint, color));
}

// Appends to one string: there may be very many findings.
void addFinding(const ReportedFinding& finding, bool color, std::string& report) {
    std::size_t start = report.size();
    finding.location.appendTo(report);
    paintFrom(start, Paint::Heading, color, report);
    report += ": ";
    start = report.size();
    report += toWord(finding.severity);
    paintFrom(start, paintOf(finding.severity), color, report);
    report.append(": ").append(finding.message).append(1, ' ');
    start = report.size();
    report.append(1, '[').append(finding.rule->name).append(1, ']');
    paintFrom(start, Paint::Dim, color, report);
    report += '\n';
    for (const ReportedRelation& related : finding.related) {
        report += "    ";
        related.location.appendTo(report);
        report.append(": ").append(related.message).append(1, '\n');
    }
}

} // namespace

std::string textReport(const std::vector<ReportedFinding>& findings, const Summary& summary,
                       bool color) {
    constexpr std::size_t kUsualLength = 256; // of the lines of a finding
    std::string report;
    report.reserve(findings.size() * kUsualLength);
    for (const ReportedFinding& finding : findings)
        addFinding(finding, color, report);
    report += summaryText(summary);
    return report;
}

std::string ruleList(bool color) {
    std::size_t width = 0;
    for (const Rule* rule : rules())
        width = std::max(width, rule->name.size());
    std::string list;
    for (const Rule* rule : rules()) {
        const std::string_view severity = toWord(rule->severity);
        list += fmt::format("{}{:{}}  {}{:{}}  {}\n", painted(rule->name, Paint::Heading, color),
                            "", width - rule->name.size(),
                            painted(severity, paintOf(rule->severity), color), "",
                            toWord(Severity::Warning).size() - severity.size(), rule->summary);
    }
    return list;
}

std::string ruleText(const Rule& rule, bool color) {
    return fmt::format("{} ({}): {}\n\n{}\n", painted(rule.name, Paint::Heading, color),
                       painted(toWord(rule.severity), paintOf(rule.severity), color), rule.summary,
                       rule.explanation);
}

} // namespace refdoc::check
