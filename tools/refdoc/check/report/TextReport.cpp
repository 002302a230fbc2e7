#include "tools/refdoc/check/report/FindingLines.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/report/Selection.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/terminal/Paint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <numeric>
#include <span>
#include <utility>

namespace refdoc::check {

namespace {

constexpr std::size_t kMostLines = 200; // if no limit is given
constexpr std::size_t kMostLinesOfSummary = 3;

// Returns the lines between the findings and the summary: what is left out.
std::string omissionText(std::size_t missing, const Summary& summary) {
    std::string text;
    if (missing > 0)
        text += fmt::format("{} not shown; --max 0 shows all, --statistics counts them\n",
                            counted(missing, "finding"));
    if (summary.findings() > 0 && summary.consequences > 0)
        text += fmt::format("{} of these findings not shown; see --show-consequences\n",
                            counted(summary.consequences, "consequence"));
    return text;
}

// Chooses what is listed within the limit.
std::vector<ReportedFinding> listed(std::vector<ReportedFinding> findings, Limit limit,
                                    const FindingLines& lines) {
    if (limit == 0U)
        return findings;
    findings = groupRepeated(std::move(findings));
    if (limit)
        return keepMostImportant(std::move(findings), *limit);
    return keepMostImportant(std::move(findings), kMostLines - kMostLinesOfSummary,
                             [&](const ReportedFinding& finding) { return lines.count(finding); });
}

std::size_t placesOf(const std::vector<ReportedFinding>& findings) {
    return std::accumulate(findings.begin(), findings.end(), std::size_t{0},
                           [](std::size_t sum, const ReportedFinding& finding) {
                               return sum + 1 + finding.morePlaces;
                           });
}

using RuleCounts = std::span<const ProductCount>; // of one rule

std::vector<RuleCounts> byRule(const std::vector<ProductCount>& counts) {
    std::vector<RuleCounts> rules;
    for (auto first = counts.begin(); first != counts.end();) {
        const auto last = std::find_if(first, counts.end(), [&](const ProductCount& count) {
            return count.rule != first->rule;
        });
        rules.emplace_back(first, last);
        first = last;
    }
    return rules;
}

std::size_t sumOf(RuleCounts counts) {
    return std::accumulate(
        counts.begin(), counts.end(), std::size_t{0},
        [](std::size_t sum, const ProductCount& count) { return sum + count.count; });
}

// Returns how many products each rule may list.
std::size_t productsThatFit(const std::vector<RuleCounts>& rules) {
    constexpr std::size_t kOtherLines = 2; // the rule itself, and the products that are left out
    const std::size_t lines = (kMostLines - 1) / std::max<std::size_t>(rules.size(), 1);
    return lines - std::min(lines, kOtherLines);
}

void addCounts(RuleCounts counts, std::size_t products, const TextStyle& style,
               std::string& report) {
    const auto add = [&](std::size_t count, std::string_view what) {
        fmt::format_to(std::back_inserter(report), "{:7}  {}\n", count, what);
    };
    add(sumOf(counts), painted(counts.front().rule->name, Paint::Heading, style.color));
    const RuleCounts listed = counts.first(std::min(products, counts.size()));
    for (const ProductCount& count : listed)
        add(count.count, count.product.empty() ? "  (no product)" : "  " + count.product);
    const RuleCounts others = counts.subspan(listed.size());
    if (!others.empty())
        add(sumOf(others), "  " + counted(others.size(), "more product"));
}

} // namespace

std::string counted(std::size_t count, std::string_view what) {
    return fmt::format("{} {}{}", count, what, count == 1 ? "" : "s");
}

std::string countsText(const Summary& summary) {
    std::string text;
    for (const auto& [count, word] :
         {std::pair(summary.errors, "error"), std::pair(summary.warnings, "warning"),
          std::pair(summary.notes, "note")}) {
        if (count > 0)
            text += (text.empty() ? "" : ", ") + counted(count, word);
    }
    return text;
}

std::string summaryText(const Summary& summary) {
    const std::string checked = summary.checkedFiles == 0
                                    ? "no files checked"
                                    : counted(summary.checkedFiles, "file") + " checked";
    if (summary.findings() == 0)
        return summary.checkedFiles == 0 ? checked : checked + ", no problems found";
    return fmt::format("{} in {}; {}", countsText(summary), counted(summary.files, "file"),
                       checked);
}

std::string textReport(std::vector<ReportedFinding> findings, const Summary& summary, Limit limit,
                       const TextStyle& style) {
    constexpr std::size_t kUsualLength = 256; // of the lines of a finding
    FindingLines lines(style);
    findings = listed(std::move(findings), limit, lines);
    std::string report;
    report.reserve(findings.size() * kUsualLength);
    for (const ReportedFinding& finding : findings)
        lines.append(finding, report);
    report += omissionText(summary.findings() - placesOf(findings), summary);
    report += summaryText(summary) + '\n';
    return report;
}

std::string statisticsReport(const std::vector<ProductCount>& counts, const Summary& summary,
                             Limit limit, const TextStyle& style) {
    const std::vector<RuleCounts> rules = byRule(counts);
    const std::size_t products =
        limit == 0U ? counts.size() : limit.value_or(productsThatFit(rules));
    std::string report;
    for (const RuleCounts& rule : rules)
        addCounts(rule, products, style, report);
    return report + summaryText(summary) + '\n';
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
