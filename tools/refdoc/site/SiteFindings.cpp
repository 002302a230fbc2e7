#include "tools/refdoc/site/SiteFindings.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/RootCheck.hpp"

#include <utility>
#include <vector>

namespace refdoc::site {

using check::ReportedFinding;

SiteFindings findFindings(const std::set<std::u16string>& products, Progress& progress) {
    const check::PathNames names({}); // paths as the pages have them
    check::CheckResult result =
        check::checkRoots(check::Scope::Everything, check::Consequences::Hidden, names, progress);
    std::vector<ReportedFinding> report = makeReport(std::move(result.findings), result.products,
                                                     names, {.needsFingerprints = false});
    SiteFindings findings;
    findings.start.summary = summarize(report, result.fileCount, result.consequenceCount);
    std::map<std::u16string, std::vector<ReportedFinding>> byProduct;
    for (ReportedFinding& finding : report) {
        const std::u16string product = fl::i18n::to_ustring(finding.location.file->product);
        auto& page = products.contains(product) ? byProduct[product] : findings.start.others;
        page.push_back(std::move(finding));
    }
    for (auto& [product, found] : byProduct)
        findings.products.emplace(product, std::move(found));
    return findings;
}

} // namespace refdoc::site
