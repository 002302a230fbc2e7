#include "docparser/json/ToJson.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/json/JsonText.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

#include <sstream>
#include <stdexcept>
#include <utility>

namespace reference::json {

namespace check = refdoc::check;
using check::Edit;
using check::Fix;
using check::ProductCount;
using check::ReportedFinding;
using check::ReportedRelation;
using check::Summary;

namespace {

// Absent if the location is a file as a whole.
std::optional<std::size_t> coordinate(const check::ReportedLocation& location,
                                      std::size_t check::TextPlace::*member) {
    return location.position ? std::optional((*location.position).*member) : std::nullopt;
}

std::optional<std::string> unlessEmpty(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

} // namespace

// The location of a finding, or of something related to it.
template <class Located>
inline constexpr auto kLocationFields = std::tuple{
    Field{"path", [](const Located& at) { return at.location.file->path; }},
    Field{"entry", [](const Located& at) { return unlessEmpty(at.location.file->entry); }},
    Field{"line",
          [](const Located& at) { return coordinate(at.location, &check::TextPlace::line); }},
    Field{"column",
          [](const Located& at) { return coordinate(at.location, &check::TextPlace::column); }},
    Field{"pointer", [](const Located& at) { return at.location.pointer; }},
    Field{"item", [](const Located& at) { return unlessEmpty(at.location.item); }}};

template <>
inline constexpr auto kFields<ReportedRelation> = std::tuple_cat(
    kLocationFields<ReportedRelation>, std::tuple{Field{"message", &ReportedRelation::message}});

template <>
inline constexpr auto kFields<Edit> =
    std::tuple{Field{"line", [](const Edit& edit) { return edit.location.position->line; }},
               Field{"column", [](const Edit& edit) { return edit.location.position->column; }},
               Field{"offset", [](const Edit& edit) { return edit.location.position->offset; }},
               Field{"original", &Edit::original}, Field{"replacement", &Edit::replacement}};

template <>
inline constexpr auto kFields<Fix> =
    std::tuple{Field{"newName", &Fix::newName}, Field{"edits", &Fix::edits}};

template <>
inline constexpr auto kFields<ReportedFinding> = std::tuple_cat(
    std::tuple{Field{"rule", [](const ReportedFinding& finding) { return finding.rule->name; }},
               Field{"severity", &ReportedFinding::severity}},
    kLocationFields<ReportedFinding>,
    std::tuple{Field{"message", &ReportedFinding::message},
               Field{"fingerprint", &ReportedFinding::fingerprint},
               Field{"related", &ReportedFinding::related}, Field{"fix", &ReportedFinding::fix}});

template <>
inline constexpr auto kFields<ProductCount> = std::tuple{
    Field{"rule", [](const ProductCount& count) { return count.rule->name; }},
    Field{"product", [](const ProductCount& count) { return unlessEmpty(count.product); }},
    Field{"findings", &ProductCount::count}};

template <>
inline constexpr auto kFields<Summary> = std::tuple{Field{"checkedFiles", &Summary::checkedFiles},
                                                    Field{"files", &Summary::files},
                                                    Field{"errors", &Summary::errors},
                                                    Field{"warnings", &Summary::warnings},
                                                    Field{"notes", &Summary::notes},
                                                    Field{"consequences", &Summary::consequences}};

} // namespace reference::json

namespace refdoc::check {

namespace json = boost::json;
using reference::json::toJson;

namespace {

using Fingerprints = std::set<std::string, std::less<>>;

void addFingerprint(Fingerprints& fingerprints, const json::value& finding,
                    std::string_view pointer = "/fingerprint") {
    fingerprints.emplace(finding.at_pointer(pointer).as_string());
}

Fingerprints readLines(std::string_view report) {
    Fingerprints fingerprints;
    std::istringstream lines{std::string(report)};
    for (std::string line; std::getline(lines, line);) {
        if (line.find_first_not_of(" \t\r") != std::string::npos)
            addFingerprint(fingerprints, json::parse(line));
    }
    return fingerprints;
}

Fingerprints readDocument(const json::object& document) {
    Fingerprints fingerprints;
    if (const json::value* findings = document.if_contains("findings")) {
        for (const json::value& finding : findings->as_array())
            addFingerprint(fingerprints, finding);
    } else if (const json::value* runs = document.if_contains("runs")) {
        for (const json::value& run : runs->as_array()) {
            for (const json::value& result : run.at("results").as_array())
                addFingerprint(fingerprints, result, "/partialFingerprints/refdocFinding~1v1");
        }
    } else {
        addFingerprint(fingerprints, document); // one line of --jsonl
    }
    return fingerprints;
}

} // namespace

std::string jsonReport(const std::vector<ReportedFinding>& findings,
                       const std::vector<ProductCount>& counts, const Summary& summary) {
    json::monotonic_resource pool;
    json::object document(&pool);
    document["findings"] = toJson(findings, &pool);
    document["statistics"] = toJson(counts, &pool);
    document["summary"] = toJson(summary, &pool);
    return toIndentedJson(std::move(document));
}

std::string jsonLinesReport(const std::vector<ReportedFinding>& findings) {
    std::string lines;
    for (const ReportedFinding& finding : findings)
        lines += toJsonLine(toJson(finding));
    return lines;
}

std::set<std::string, std::less<>> readFingerprints(std::string_view report) {
    try {
        json::error_code error;
        const json::value document = json::parse(report, error);
        return error ? readLines(report) : readDocument(document.as_object());
    } catch (const std::exception&) {
        throw std::runtime_error("not the output of refdoc check --json, --jsonl or --sarif");
    }
}

} // namespace refdoc::check
