#include "platform/unicode/Transcoding.hpp"
#include "tools/refdoc/check/ReportFormats.hpp"

#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <fmt/format.h>

namespace refdoc::check {

namespace json = boost::json;

namespace {

constexpr std::string_view kSourceRoot = "%SRCROOT%";

bool isUnreserved(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') ||
           std::string_view("-._~/").find(byte) != std::string::npos;
}

// A path as a URI reference: what is not plain is escaped, ':' too, lest it look like a scheme.
std::string uriOf(std::string_view path) {
    std::string uri;
    for (const char byte : path) {
        if (isUnreserved(byte))
            uri += byte;
        else
            uri += fmt::format("%{:02X}", static_cast<unsigned char>(byte));
    }
    return uri;
}

std::string fileUriOf(std::string_view path) {
    if (path.starts_with('/'))
        return "file://" + uriOf(path);
    // A drive needs a slash before it and keeps its colon.
    return "file:///" + std::string(path.substr(0, 2)) + uriOf(path.substr(2));
}

json::object textObject(std::string_view text) {
    return {{"text", text}};
}

json::object artifactOf(const ReportedSpot& spot) {
    if (std::filesystem::path(platform::toUtf16(spot.path)).is_absolute())
        return {{"uri", fileUriOf(spot.path)}};
    return {{"uri", uriOf(spot.path)}, {"uriBaseId", kSourceRoot}};
}

json::object locationOf(const ReportedSpot& spot) {
    json::object physical{{"artifactLocation", artifactOf(spot)}};
    // Lines are those of the entry, and a package has none.
    if (spot.place && spot.entry.empty())
        physical["region"] = {{"startLine", spot.place->line}, {"startColumn", spot.place->column}};
    json::object location{{"physicalLocation", std::move(physical)}};
    if (!spot.entry.empty())
        location["logicalLocations"] = {
            {{"name", spot.entry}, {"fullyQualifiedName", spot.text()}, {"kind", "resource"}}};
    return location;
}

// Messages are sentences, and name the entry that no region can.
std::string messageOf(const ReportedSpot& spot, std::string_view message) {
    std::string text;
    if (!spot.entry.empty())
        text = spot.entry +
               (spot.place ? fmt::format(":{}:{}", spot.place->line, spot.place->column) : "") +
               ": ";
    text += message;
    if (!text.ends_with('?'))
        text += '.';
    return text;
}

json::object resultOf(const ReportedFinding& finding) {
    json::object result;
    result["ruleId"] = finding.rule->name;
    result["ruleIndex"] = static_cast<std::size_t>(finding.rule->id);
    result["level"] = toWord(finding.severity);
    result["message"] = textObject(messageOf(finding.spot, finding.message));
    result["locations"] = json::array{locationOf(finding.spot)};
    if (!finding.related.empty()) {
        json::array& related = result["relatedLocations"].emplace_array();
        for (const ReportedRelation& relation : finding.related) {
            json::object location = locationOf(relation.spot);
            location["id"] = related.size();
            location["message"] = textObject(messageOf(relation.spot, relation.message));
            related.push_back(std::move(location));
        }
    }
    result["partialFingerprints"] = {{"refdocFinding/v1", finding.fingerprint}};
    return result;
}

// "missing-key" as a name in the form that the standard asks for: "MissingKey".
std::string pascalName(std::string_view name) {
    std::string result;
    bool isFirst = true;
    for (const char letter : name) {
        if (letter != '-')
            result += isFirst ? static_cast<char>(letter - 'a' + 'A') : letter;
        isFirst = letter == '-';
    }
    return result;
}

json::array ruleObjects() {
    json::array objects;
    for (const Rule& rule : rules()) {
        json::object object;
        object["id"] = rule.name;
        object["name"] = pascalName(rule.name);
        object["shortDescription"] = textObject(fmt::format("{}.", rule.summary));
        object["fullDescription"] = textObject(rule.explanation);
        object["help"] = textObject(rule.explanation);
        object["defaultConfiguration"] = {{"level", toWord(rule.severity)}};
        objects.push_back(std::move(object));
    }
    return objects;
}

} // namespace

std::string sarifReport(const std::vector<ReportedFinding>& findings,
                        const std::filesystem::path& base) {
    json::array results;
    for (const ReportedFinding& finding : findings)
        results.push_back(resultOf(finding));

    json::object driver{{"name", "refdoc"}, {"semanticVersion", REFDOC_VERSION}};
    driver["rules"] = ruleObjects();
    json::object run{{"tool", {{"driver", std::move(driver)}}}};
    const std::u8string folder = base.generic_u8string();
    run["originalUriBaseIds"] = {
        {kSourceRoot, {{"uri", fileUriOf(std::string(folder.begin(), folder.end())) + "/"}}}};
    run["columnKind"] = "unicodeCodePoints";
    run["results"] = std::move(results);
    json::object document{{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                          {"version", "2.1.0"}};
    document["runs"] = json::array{std::move(run)};
    return json::serialize(document) + '\n';
}

} // namespace refdoc::check
