#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/pages/FindingList.hpp"
#include "tools/refdoc/pages/Frames.hpp"
#include "tools/refdoc/pages/SitePages.hpp"

#include <fmt/format.h>

#include <algorithm>

namespace refdoc::site {

using html::HtmlWriter;

namespace {

std::string languagesOf(const SectionSummary& section) {
    std::vector<std::string> tags;
    for (const std::u16string& language : section.languages)
        tags.push_back(html::languageTag(fl::i18n::to_string(language)));
    return fmt::format("{}", fmt::join(tags, ", "));
}

void writeSection(HtmlWriter& writer, const SectionSummary& section) {
    writer.element("tr", {}, [&] {
        writer.element("th", {{"scope", "row"}}, [&] {
            writer.element("a", {{"href", html::relativeUrl({}, section.index)}},
                           [&] { writer.element("bdi", {}, section.displayName); });
            if (section.isBroken) {
                writer.text(" ");
                writer.element("small", {{"class", "mark error"}}, "file cannot be used");
            }
            if (section.findings.findings() > 0) {
                writer.text(" ");
                writer.element("small", {{"class", "mark warning"}},
                               check::countsText(section.findings));
            }
        });
        if (section.isBroken) {
            writer.element("td", {{"colspan", "3"}}, "");
            return;
        }
        writer.element("td", {}, std::to_string(section.itemCount));
        writer.element("td", {}, std::to_string(section.deprecatedCount));
        writer.element("td", {}, languagesOf(section));
    });
}

void writeTable(HtmlWriter& writer, const char* heading,
                const std::vector<SectionSummary>& sections, bool isInstalled) {
    if (std::ranges::find(sections, isInstalled, &SectionSummary::isInstalled) == sections.end())
        return;
    writer.element("h2", {}, heading);
    writer.element("table", {}, [&] {
        writer.element("thead", {}, [&] {
            writer.element("tr", {}, [&] {
                for (const char* column : {"Product", "Items", "Deprecated", "Languages"})
                    writer.element("th", {{"scope", "col"}}, column);
            });
        });
        writer.element("tbody", {}, [&] {
            for (const SectionSummary& section : sections) {
                if (section.isInstalled == isInstalled)
                    writeSection(writer, section);
            }
        });
    });
}

} // namespace

std::string startPage(const SiteLanguages& languages, const SiteLanguage& language,
                      const std::vector<SectionSummary>& sections, const StartFindings& findings) {
    const html::PageFrame frame = startFrame(languages, language);
    return html::framedPage(frame, [&](HtmlWriter& writer) {
        writer.element("h1", {}, frame.title);
        if (sections.empty())
            writer.element("p", {}, "There is no product with full records.");
        writeTable(writer, "Installed", sections, true);
        writeTable(writer, "Not installed", sections, false);
        if (findings.summary.findings() > 0)
            writer.element("p", {{"class", "findings-note"}},
                           "refdoc check: " + check::summaryText(findings.summary));
        writeFindingsPanel(writer, findings.others);
    });
}

} // namespace refdoc::site
