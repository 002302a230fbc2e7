#include "tools/refdoc/pages/FindingList.hpp"

#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/report/Selection.hpp"
#include "tools/refdoc/check/rules/ContentRules.hpp"
#include "tools/refdoc/check/rules/FileRules.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/check/text/Excerpt.hpp"
#include "tools/refdoc/explain/RuleText.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace refdoc::site {

using check::ReportedFinding;
using check::ReportedRelation;
using html::HtmlWriter;

namespace {

constexpr std::size_t kMostFindings = 50;
constexpr std::size_t kExcerptColumns = 100;

using Findings = std::vector<ReportedFinding>;

// Explanations have no other markup than code between backticks.
void writeExplanation(HtmlWriter& writer, std::string_view markdown) {
    bool isCode = false;
    for (;; isCode = !isCode) {
        const std::size_t end = markdown.find('`');
        if (isCode)
            writer.element("code", {}, markdown.substr(0, end));
        else
            writer.text(markdown.substr(0, end));
        if (end == markdown.npos)
            return;
        markdown.remove_prefix(end + 1);
    }
}

class FindingList {
public:
    FindingList(HtmlWriter& writer, std::string_view text) : html_(writer), text_(text) {}

    // \param begin, end  the findings of one rule
    void writeRule(Findings::const_iterator begin, Findings::const_iterator end) {
        const check::Rule& rule = *begin->rule;
        html_.element("section", {{"class", "finding"}}, [&] {
            html_.element("h3", {}, [&] {
                html_.element("span", {{"class", toWord(begin->severity)}},
                              toWord(begin->severity));
                html_.text(" ");
                html_.element("code", {}, rule.name);
            });
            html_.element("ul", {}, [&] {
                for (; begin != end; ++begin)
                    html_.element("li", {}, [&] { write(*begin); });
            });
            html_.element("details", {}, [&] {
                html_.element("summary", {}, "What this means and how to fix it");
                html_.element("p", {}, [&] { writeExplanation(html_, rule.explanation); });
            });
        });
    }

private:
    void write(const ReportedFinding& finding) {
        writeText(finding.message);
        if (!finding.location.item.empty()) {
            html_.text(" (");
            writeText(finding.location.item);
            html_.text(")");
        }
        writeLocation(finding.location);
        if (!text_.empty() && finding.location.position)
            writeExcerpt(finding.location.position->offset);
        for (const ReportedRelation& related : finding.related) {
            html_.element("p", {}, [&] {
                html_.text(related.message);
                html_.text(":");
            });
            writeLocation(related.location);
        }
    }

    void writeText(std::string_view text) { html_.element("bdi", {}, text); }

    void writeLocation(const check::ReportedLocation& location) {
        html_.element("p", {},
                      [&] { html_.element("code", {}, [&] { writeText(location.text()); }); });
    }

    void writeExcerpt(std::size_t offset) {
        const check::Excerpt excerpt = check::excerptOf(text_, offset, 1, kExcerptColumns);
        // With the focus, it can be scrolled by keyboard.
        html_.element("pre", {{"dir", "ltr"}, {"tabindex", "0"}},
                      fmt::format("{}\n{}", excerpt.line, excerpt.marker));
    }

    HtmlWriter& html_;
    std::string_view text_;
};

std::vector<ReportedFinding> findingsIn(const BrokenFile& file) {
    const SourceFile source{.path = file.account.path, .entry = file.account.entry};
    std::vector<check::Finding> found;
    if (check::wasRead(file.account)) {
        // What other files refer to is not known here.
        check::PendingFindings pending;
        check::MergeLosses losses;
        checkContent(file.account, source, file.text, pending, losses, found);
    } else if (std::optional<check::Finding> finding = check::findUnreadable(file.account)) {
        found.push_back(std::move(*finding));
    }
    check::Findings findings;
    check::addFindings(found, source, findings);
    return makeReport(std::move(findings), {}, check::PathNames({}), {.needsFingerprints = false});
}

} // namespace

void writeFindings(HtmlWriter& writer, std::vector<ReportedFinding> findings,
                   std::string_view text) {
    const std::size_t count = findings.size();
    findings = check::keepMostImportant(std::move(findings), kMostFindings);
    const auto orderOf = [](const ReportedFinding& finding) {
        return std::pair(-static_cast<int>(finding.severity), check::indexOf(*finding.rule));
    };
    std::ranges::stable_sort(findings, {}, orderOf);
    FindingList list(writer, text);
    for (auto begin = findings.cbegin(); begin != findings.cend();) {
        const auto end =
            std::ranges::upper_bound(begin, findings.cend(), orderOf(*begin), {}, orderOf);
        list.writeRule(begin, end);
        begin = end;
    }
    if (count > findings.size())
        writer.element("p", {},
                       fmt::format("{} not shown; refdoc check lists all of them",
                                   check::counted(count - findings.size(), "finding")));
}

void writeFindingsNote(HtmlWriter& writer, const std::vector<ReportedFinding>& findings) {
    if (findings.empty())
        return;
    const std::string url = '#' + std::string(kFindingsId);
    writer.element("p", {{"class", "findings-note"}}, [&] {
        writer.element("a", {{"href", url}}, check::countsText(check::summarize(findings, 0, 0)));
    });
}

void writeFindingsPanel(HtmlWriter& writer, std::vector<ReportedFinding> findings) {
    if (findings.empty())
        return;
    writer.element("section", {{"class", "findings"}, {"id", kFindingsId}}, [&] {
        writer.element("h2", {}, "Findings of refdoc check");
        writeFindings(writer, std::move(findings));
    });
}

std::vector<ReportedFinding> findingsBeside(const Edition& edition,
                                            const ProductFindings& findings) {
    std::vector<ReportedFinding> beside;
    std::ranges::copy_if(
        findings.all(), std::back_inserter(beside), [&](const ReportedFinding& finding) {
            return std::ranges::none_of(edition.content->brokenFiles, [&](const BrokenFile& file) {
                return file.account.path == finding.location.file->source.path;
            });
        });
    return beside;
}

void writeBrokenFiles(HtmlWriter& writer, const std::vector<BrokenFile>& files) {
    for (const BrokenFile& file : files) {
        writer.element("h2", {}, "This file cannot be used");
        writer.element("p", {}, [&] {
            writer.element("code", {}, [&] { writer.element("bdi", {}, fileText(file.account)); });
        });
        writeFindings(writer, findingsIn(file), file.text);
    }
}

} // namespace refdoc::site
