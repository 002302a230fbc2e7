#include "tools/refdoc/check/report/ReportFormats.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

#include <stdexcept>

namespace refdoc::check {

namespace json = boost::json;

namespace {

// The members that say where something is; null is what is not known.
json::object spotObject(const ReportedLocation& spot) {
    json::object object;
    object["file"] = spot.file->path;
    object["entry"] = spot.file->entry.empty() ? json::value() : json::value(spot.file->entry);
    object["line"] = spot.position ? json::value(spot.position->line) : json::value();
    object["column"] = spot.position ? json::value(spot.position->column) : json::value();
    object["pointer"] = spot.pointer ? json::value(*spot.pointer) : json::value();
    return object;
}

json::object findingObject(const ReportedFinding& finding) {
    json::object object;
    object["rule"] = finding.rule->name;
    object["severity"] = toWord(finding.severity);
    for (const json::key_value_pair& member : spotObject(finding.location))
        object.insert(member);
    object["message"] = finding.message;
    object["fingerprint"] = finding.fingerprint;
    json::array related;
    for (const ReportedRelation& relation : finding.related) {
        json::object& element = related.emplace_back(spotObject(relation.location)).as_object();
        element["message"] = relation.message;
    }
    object["related"] = std::move(related);
    return object;
}

std::string textAt(const json::value& value, std::string_view pointer) {
    return std::string(value.at_pointer(pointer).as_string());
}

using Fingerprints = std::set<std::string, std::less<>>;

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
    std::string report;
    for (const ReportedFinding& finding : findings)
        report += json::serialize(findingObject(finding)) + '\n';
    return report;
}

std::set<std::string, std::less<>> readFingerprints(std::string_view report) {
    try {
        json::error_code error;
        const json::value document = json::parse(report, error);
        if (!error && document.as_object().contains("runs"))
            return readSarif(document);
        return readLines(report);
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("it is no report of refdoc check: ") + error.what());
    }
}

} // namespace refdoc::check
