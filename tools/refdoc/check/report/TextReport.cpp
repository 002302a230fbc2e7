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
    return text.empty() ? "nothing found\n"
                        : fmt::format("{} in {}\n", text, counted(summary.files, "file"));
}

} // namespace

std::string textReport(const std::vector<ReportedFinding>& findings, bool color) {
    std::string report;
    for (const ReportedFinding& finding : findings) {
        report += fmt::format(
            "{}: {}: {} {}\n", painted(finding.location.text(), Paint::Heading, color),
            painted(toWord(finding.severity), paintOf(finding.severity), color), finding.message,
            painted(fmt::format("[{}]", finding.rule->name), Paint::Dim, color));
        for (const ReportedRelation& related : finding.related)
            report += fmt::format("    {}: {}\n", related.location.text(), related.message);
    }
    return report + summaryText(summarize(findings));
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
