#include "tools/refdoc/check/report/Report.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/report/Places.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace refdoc::check {

namespace {

// FNV-1a, 64 bits: a fixed function, for fingerprints are compared between versions and machines.
class Hash {
public:
    void add(std::string_view text) {
        for (const char byte : text)
            add(static_cast<unsigned char>(byte));
        add('\0'); // "ab", "c" is not "a", "bc"
    }
    std::uint64_t value() const noexcept { return value_; }

private:
    void add(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3U; }

    std::uint64_t value_ = 0xCBF29CE484222325U;
};

ReportedSpot reported(Spot& spot, const PathNames& names) {
    return {visibleLine(names.pathOf(spot.file)), visibleLine(fl::i18n::to_string(spot.file.entry)),
            spot.place, std::move(spot.pointer)};
}

Severity severityOf(const Rule& rule, const ReportSettings& settings) {
    const bool isRaised = settings.errorRules.contains(rule.name) ||
                          (settings.isAllError && rule.severity == Severity::Warning);
    return isRaised ? Severity::Error : rule.severity;
}

auto orderOf(const ReportedFinding& finding) {
    const ReportedSpot& spot = finding.spot;
    return std::tuple(std::string_view(spot.path), std::string_view(spot.entry),
                      spot.place ? spot.place->offset + 1 : 0, finding.rule->id,
                      std::string_view(finding.message));
}

// Tells findings apart that nothing but their order does.
class Fingerprints {
public:
    std::string make(const Finding& finding, const ReportedSpot& spot) {
        Hash hash;
        for (const std::string_view part :
             {ruleOf(finding.rule).name, std::string_view(spot.path), std::string_view(spot.entry),
              std::string_view(finding.identity)})
            hash.add(part);
        const std::size_t number = ++counts_[hash.value()];
        return number == 1 ? fmt::format("{:016x}", hash.value())
                           : fmt::format("{:016x}-{}", hash.value(), number);
    }

private:
    std::unordered_map<std::uint64_t, std::size_t> counts_;
};

// Takes the strings that the fingerprint does not need.
ReportedFinding reported(Finding& finding, const PathNames& names, const ReportSettings& settings) {
    const Rule& rule = ruleOf(finding.rule);
    ReportedFinding result{&rule,
                           severityOf(rule, settings),
                           reported(finding.spot, names),
                           visibleLine(finding.message),
                           {},
                           {}};
    for (RelatedSpot& related : finding.related)
        result.related.push_back({reported(related.spot, names), std::move(related.message)});
    return result;
}

} // namespace

std::string ReportedSpot::text() const {
    std::string text = path;
    if (!entry.empty())
        text += '!' + entry;
    if (place)
        text += fmt::format(":{}:{}", place->line, place->column);
    return text;
}

std::vector<ReportedFinding> makeReport(std::vector<Finding> findings, const PathNames& names,
                                        const ReportSettings& settings) {
    std::erase_if(findings, [&](const Finding& finding) {
        return settings.ignoredRules.contains(ruleOf(finding.rule).name);
    });
    findPlaces(findings);

    std::vector<std::pair<ReportedFinding, const Finding*>> report;
    report.reserve(findings.size());
    for (Finding& finding : findings)
        report.emplace_back(reported(finding, names, settings), &finding);
    // Many large entries: only their addresses are moved about.
    std::vector<std::pair<ReportedFinding, const Finding*>*> order;
    order.reserve(report.size());
    for (auto& entry : report)
        order.push_back(&entry);
    std::ranges::sort(order, {}, [](const auto* entry) { return orderOf(entry->first); });

    std::vector<ReportedFinding> result;
    result.reserve(order.size());
    Fingerprints fingerprints;
    for (auto* entry : order) {
        ReportedFinding& finding = entry->first;
        finding.fingerprint = fingerprints.make(*entry->second, finding.spot);
        if (!settings.knownFingerprints.contains(finding.fingerprint))
            result.push_back(std::move(finding));
    }
    return result;
}

Summary summarize(const std::vector<ReportedFinding>& findings) {
    std::set<std::pair<std::string_view, std::string_view>> files;
    for (const ReportedFinding& finding : findings)
        files.emplace(finding.spot.path, finding.spot.entry);
    const auto count = [&](Severity severity) {
        return static_cast<std::size_t>(
            std::ranges::count(findings, severity, &ReportedFinding::severity));
    };
    return {.files = files.size(),
            .errors = count(Severity::Error),
            .warnings = count(Severity::Warning),
            .notes = count(Severity::Note)};
}

} // namespace refdoc::check
