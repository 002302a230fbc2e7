#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/json/ToJson.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace refdoc {

using check::ReportedFinding;
using check::ReportedRelation;
using check::Summary;

namespace {

// Absent if the location is a file as a whole.
std::optional<std::size_t> coordinate(const check::ReportedSpot& spot,
                                      std::size_t check::TextPlace::*member) {
    return spot.place ? std::optional((*spot.place).*member) : std::nullopt;
}

} // namespace

// The location of a finding, or of something related to it.
template <class Located>
inline constexpr auto kLocationFields = std::tuple{
    Field{"path", [](const Located& at) { return at.spot.path; }},
    Field{"entry",
          [](const Located& at) {
              return at.spot.entry.empty() ? std::nullopt : std::optional(at.spot.entry);
          }},
    Field{"line", [](const Located& at) { return coordinate(at.spot, &check::TextPlace::line); }},
    Field{"column",
          [](const Located& at) { return coordinate(at.spot, &check::TextPlace::column); }},
    Field{"pointer", [](const Located& at) { return at.spot.pointer; }}};

template <>
inline constexpr auto kFields<ReportedRelation> = std::tuple_cat(
    kLocationFields<ReportedRelation>, std::tuple{Field{"message", &ReportedRelation::message}});

template <>
inline constexpr auto kFields<ReportedFinding> = std::tuple_cat(
    std::tuple{Field{"rule", [](const ReportedFinding& finding) { return finding.rule->name; }},
               Field{"severity", &ReportedFinding::severity}},
    kLocationFields<ReportedFinding>,
    std::tuple{Field{"message", &ReportedFinding::message},
               Field{"fingerprint", &ReportedFinding::fingerprint},
               Field{"related", &ReportedFinding::related}});

template <>
inline constexpr auto kFields<Summary> =
    std::tuple{Field{"files", &Summary::files}, Field{"errors", &Summary::errors},
               Field{"warnings", &Summary::warnings}, Field{"notes", &Summary::notes}};

namespace check {

namespace json = boost::json;

namespace {

using Fingerprints = std::set<std::string, std::less<>>;

std::string textAt(const json::value& value, std::string_view pointer) {
    return std::string(value.at_pointer(pointer).as_string());
}

Fingerprints readDocument(const json::value& document) {
    Fingerprints fingerprints;
    for (const json::value& finding : document.at("findings").as_array())
        fingerprints.insert(textAt(finding, "/fingerprint"));
    return fingerprints;
}

Fingerprints readSarif(const json::value& document) {
    Fingerprints fingerprints;
    for (const json::value& run : document.at("runs").as_array()) {
        for (const json::value& result : run.at("results").as_array())
            fingerprints.insert(textAt(result, "/partialFingerprints/refdocFinding~1v1"));
    }
    return fingerprints;
}

Fingerprints readLines(std::string_view report) {
    Fingerprints fingerprints;
    for (std::size_t start = 0; start < report.size();) {
        const std::size_t end = std::min(report.find('\n', start), report.size());
        const std::string_view line = report.substr(start, end - start);
        start = end + 1;
        if (line.find_first_not_of(" \t\r") != line.npos)
            fingerprints.insert(textAt(json::parse(line), "/fingerprint"));
    }
    return fingerprints;
}

} // namespace

std::string jsonReport(const std::vector<ReportedFinding>& findings) {
    json::monotonic_resource pool;
    json::object document(&pool);
    document["findings"] = toJson(findings, &pool);
    document["summary"] = toJson(summarize(findings), &pool);
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
        if (!error && document.as_object().contains("findings"))
            return readDocument(document);
        if (!error && document.as_object().contains("runs"))
            return readSarif(document);
        return readLines(report);
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("it is no report of refdoc check: ") + error.what());
    }
}

} // namespace check
} // namespace refdoc
