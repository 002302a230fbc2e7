#include "tools/refdoc/check/report/Report.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace refdoc::check {

namespace {

using FileName = std::pair<std::string, std::string>; // path, entry
using FindingInFile = std::pair<Finding*, std::shared_ptr<const ReportedFile>>;

// FNV-1a with 64 bits. Fingerprints are compared between versions and machines, so the function
// must never change.
class Hash {
public:
    void add(std::string_view text) {
        for (const char byte : text)
            add(static_cast<unsigned char>(byte));
        add('\0'); // "ab", "c" differs from "a", "bc"
    }
    std::uint64_t value() const noexcept { return value_; }

private:
    void add(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3U; }

    std::uint64_t value_ = 0xCBF29CE484222325U;
};

// Makes the fingerprints of one file's findings. Findings that differ only in their order are
// numbered.
class Fingerprints {
public:
    explicit Fingerprints(const FileName& file) : file_(file) {}

    std::string make(const Finding& finding) {
        Hash hash;
        for (const std::string_view part :
             {finding.rule->name, std::string_view(file_.first), std::string_view(file_.second),
              std::string_view(finding.identity)})
            hash.add(part);
        const std::size_t number = ++counts_[hash.value()];
        return number == 1 ? fmt::format("{:016x}", hash.value())
                           : fmt::format("{:016x}-{}", hash.value(), number);
    }

private:
    const FileName& file_;
    std::unordered_map<std::uint64_t, std::size_t> counts_;
};

// Leaves out the product and the source, which related files need not have.
ReportedFile reported(const SourceFile& file, const PathNames& names) {
    return {.path = visibleLine(names.pathOf(file)),
            .entry = visibleLine(fl::i18n::to_string(file.entry))};
}

Severity severityOf(const Rule& rule, const ReportSettings& settings) {
    const bool isRaised = settings.errorRules.contains(rule.name) ||
                          (settings.isAllError && rule.severity == Severity::Warning);
    return isRaised ? Severity::Error : rule.severity;
}

std::size_t orderOf(const Location& location) {
    return location.position ? location.position->offset + 1 : 0;
}

// By position; then in the order of the rules, which takes longer to find out.
bool isBefore(const Finding* left, const Finding* right) {
    const std::size_t leftOrder = orderOf(left->location);
    const std::size_t rightOrder = orderOf(right->location);
    if (leftOrder != rightOrder)
        return leftOrder < rightOrder;
    return std::pair(indexOf(*left->rule), std::string_view(left->message)) <
           std::pair(indexOf(*right->rule), std::string_view(right->message));
}

// Most messages are printable ASCII and need no copy.
std::string visible(std::string& message) {
    const auto isPrintable = [](char byte) { return byte >= ' ' && byte <= '~'; };
    return std::ranges::all_of(message, isPrintable) ? std::move(message) : visibleLine(message);
}

// Moves the strings out of the finding.
ReportedLocation reported(Location& location, std::shared_ptr<const ReportedFile> file) {
    return {std::move(file), location.position, std::move(location.pointer),
            visible(location.item)};
}

ReportedFinding reported(Finding& finding, std::shared_ptr<const ReportedFile> file,
                         const PathNames& names, const ReportSettings& settings) {
    ReportedFinding result{.rule = finding.rule,
                           .severity = severityOf(*finding.rule, settings),
                           .location = reported(finding.location, std::move(file)),
                           .message = visible(finding.message),
                           .fingerprint = {},
                           .related = {},
                           .fix = std::move(finding.fix),
                           .cause = std::move(finding.cause)};
    for (RelatedLocation& related : finding.related)
        result.related.push_back({reported(related.location, std::make_shared<const ReportedFile>(
                                                                 reported(related.file, names))),
                                  related.message});
    return result;
}

} // namespace

void ReportedLocation::appendTo(std::string& text) const {
    text += file->path;
    if (!file->entry.empty())
        text.append(1, '!').append(file->entry);
    if (position)
        fmt::format_to(std::back_inserter(text), ":{}:{}", position->line, position->column);
}

std::string ReportedLocation::text() const {
    std::string text;
    appendTo(text);
    return text;
}

std::vector<ReportedFinding> makeReport(Findings findings, const ProductNamesByFile& products,
                                        const PathNames& names, const ReportSettings& settings) {
    // Entries of a package may have the same name.
    std::map<FileName, std::vector<FindingInFile>> files;
    std::size_t count = 0;
    for (auto& [source, found] : findings) {
        const auto file = std::make_shared<ReportedFile>(reported(source, names));
        file->source = names.originalOf(source);
        if (const auto product = products.find(source); product != products.end())
            file->product = visibleLine(product->second);
        std::vector<FindingInFile>& list = files[{file->path, file->entry}];
        count += found.size();
        for (Finding& finding : found) {
            if (!settings.ignoredRules.contains(finding.rule->name))
                list.push_back({&finding, file});
        }
    }
    const bool hasFingerprints = settings.needsFingerprints || !settings.knownFingerprints.empty();
    std::vector<ReportedFinding> report;
    report.reserve(count);
    for (auto& [name, list] : files) {
        std::ranges::sort(list, isBefore, &FindingInFile::first);
        Fingerprints fingerprints(name);
        for (auto& [finding, file] : list) {
            std::string fingerprint;
            if (hasFingerprints)
                fingerprint = fingerprints.make(*finding);
            if (settings.knownFingerprints.contains(fingerprint))
                continue;
            report.push_back(reported(*finding, std::move(file), names, settings));
            report.back().fingerprint = std::move(fingerprint);
        }
    }
    return report;
}

Summary summarize(const std::vector<ReportedFinding>& findings, std::size_t checkedFiles,
                  std::size_t consequences) {
    std::set<const ReportedFile*> files;
    for (const ReportedFinding& finding : findings)
        files.insert(finding.location.file.get());
    const auto count = [&](Severity severity) {
        return static_cast<std::size_t>(
            std::ranges::count(findings, severity, &ReportedFinding::severity));
    };
    return {.checkedFiles = checkedFiles,
            .files = files.size(),
            .errors = count(Severity::Error),
            .warnings = count(Severity::Warning),
            .notes = count(Severity::Note),
            .consequences = consequences};
}

} // namespace refdoc::check
