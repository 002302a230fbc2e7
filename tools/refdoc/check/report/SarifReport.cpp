#include "docparser/parsing/TextPlaces.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/report/Selection.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>
#include <boost/url/encode.hpp>
#include <boost/url/rfc/unreserved_chars.hpp>
#include <fmt/format.h>

namespace refdoc::check {

namespace json = boost::json;
namespace urls = boost::urls;

using reference::docparser::placeOfOffset;

namespace {

constexpr std::string_view kSourceRoot = "%SRCROOT%";
constexpr std::size_t kMostResults = 25000; // that code scanning accepts

// Returns a path as a URI reference. ':' is escaped as well, so that it does not look like the end
// of a scheme.
std::string uriOf(std::string_view path) {
    return urls::encode(path, urls::unreserved_chars + '/');
}

std::string fileUriOf(std::string_view path) {
    if (path.starts_with('/'))
        return "file://" + uriOf(path);
    // A drive follows a third slash and keeps its colon.
    return "file:///" + std::string(path.substr(0, 2)) + uriOf(path.substr(2));
}

json::object textObject(std::string_view text) {
    return {{"text", text}};
}

json::object artifactOf(std::string_view path) {
    if (std::filesystem::path(fl::i18n::to_ustring(path)).is_absolute())
        return {{"uri", fileUriOf(path)}};
    return {{"uri", uriOf(path)}, {"uriBaseId", kSourceRoot}};
}

json::object locationOf(const ReportedLocation& reported) {
    const auto& [file, position, pointer, item] = reported;
    json::object physical{{"artifactLocation", artifactOf(file->path)}};
    // A line number is that of the entry. A package has no lines.
    if (position && file->entry.empty())
        physical["region"] = {{"startLine", position->line}, {"startColumn", position->column}};
    json::object location{{"physicalLocation", std::move(physical)}};
    json::array logical;
    if (!file->entry.empty())
        logical.push_back(
            {{"name", file->entry}, {"fullyQualifiedName", reported.text()}, {"kind", "resource"}});
    if (!item.empty())
        logical.push_back({{"name", item}, {"fullyQualifiedName", pointer.value_or("")}});
    if (!logical.empty())
        location["logicalLocations"] = std::move(logical);
    return location;
}

// Messages are sentences. They name the entry, which a region can't.
std::string messageOf(const ReportedLocation& location, std::string_view message) {
    std::string text;
    if (!location.file->entry.empty())
        text = location.text().substr(location.file->path.size() + 1) + ": ";
    text += message;
    if (!text.ends_with('?'))
        text += '.';
    return text;
}

// Returns the characters that an edit replaces. A byte-order mark is no character, so what is only
// removed is given in bytes.
json::object regionOf(const Edit& edit) {
    const TextPlace& start = *edit.location.position;
    if (edit.replacement.empty())
        return {{"byteOffset", start.offset}, {"byteLength", edit.original.size()}};
    const std::size_t width = placeOfOffset(edit.original, edit.original.size()).column - 1;
    return {{"startLine", start.line},
            {"startColumn", start.column},
            {"endColumn", start.column + width}};
}

// \param edit  the first of a fix
std::string descriptionOf(const Edit& edit) {
    return edit.replacement.empty()
               ? "Remove the byte-order mark."
               : fmt::format("Replace {} with {}.", edit.original, edit.replacement);
}

json::object fixOf(const Fix& fix, const ReportedFile& file) {
    json::array replacements;
    for (const Edit& edit : fix.edits) {
        json::object replacement{{"deletedRegion", regionOf(edit)}};
        if (!edit.replacement.empty())
            replacement["insertedContent"] = textObject(edit.replacement);
        replacements.push_back(std::move(replacement));
    }
    json::object change{{"artifactLocation", artifactOf(file.path)}};
    change["replacements"] = std::move(replacements);
    json::object object{{"description", textObject(descriptionOf(fix.edits.front()))}};
    object["artifactChanges"] = json::array{std::move(change)};
    return object;
}

// The format has no renamed files and no regions in the entries of a package.
bool hasSarifFix(const ReportedFinding& finding) {
    return finding.fix && !finding.fix->edits.empty() && finding.location.file->entry.empty();
}

json::object resultOf(const ReportedFinding& finding) {
    json::object result;
    result["ruleId"] = finding.rule->name;
    result["ruleIndex"] = indexOf(*finding.rule);
    result["level"] = toWord(finding.severity);
    result["message"] = textObject(messageOf(finding.location, finding.message));
    result["locations"] = json::array{locationOf(finding.location)};
    if (!finding.related.empty()) {
        json::array& related = result["relatedLocations"].emplace_array();
        for (const ReportedRelation& relation : finding.related) {
            json::object location = locationOf(relation.location);
            location["id"] = related.size();
            location["message"] = textObject(messageOf(relation.location, relation.message));
            related.push_back(std::move(location));
        }
    }
    if (hasSarifFix(finding))
        result["fixes"] = json::array{fixOf(*finding.fix, *finding.location.file)};
    result["partialFingerprints"] = {{"refdocFinding/v1", finding.fingerprint}};
    return result;
}

// Returns "MissingKey" for "missing-key": the standard requires names in Pascal case.
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
    for (const Rule* rule : rules()) {
        json::object object;
        object["id"] = rule->name;
        object["name"] = pascalName(rule->name);
        object["shortDescription"] = textObject(fmt::format("{}.", rule->summary));
        object["fullDescription"] = textObject(rule->explanation);
        object["help"] = textObject(rule->explanation);
        object["defaultConfiguration"] = {{"level", toWord(rule->severity)}};
        objects.push_back(std::move(object));
    }
    return objects;
}

json::object invocationOf(bool isComplete, std::size_t missing, std::size_t total) {
    json::object invocation{{"executionSuccessful", isComplete}};
    if (missing > 0) {
        const std::string message = fmt::format(
            "{} of {} findings are left out because the report is limited to {} results.", missing,
            total, total - missing);
        json::object notification{{"level", "warning"}, {"message", textObject(message)}};
        invocation["toolExecutionNotifications"] = json::array{std::move(notification)};
    }
    return invocation;
}

} // namespace

std::string sarifReport(std::vector<ReportedFinding> findings, std::size_t total, bool isComplete,
                        const std::filesystem::path& base) {
    findings = keepMostImportant(std::move(findings), kMostResults);
    json::array results;
    for (const ReportedFinding& finding : findings)
        results.push_back(resultOf(finding));

    json::object driver{{"name", "refdoc"}, {"semanticVersion", REFDOC_VERSION}};
    driver["rules"] = ruleObjects();
    json::object run{{"tool", {{"driver", std::move(driver)}}}};
    const std::u8string folder = base.generic_u8string();
    run["originalUriBaseIds"] = {
        {kSourceRoot, {{"uri", fileUriOf(std::string(folder.begin(), folder.end())) + "/"}}}};
    run["invocations"] = json::array{invocationOf(isComplete, total - results.size(), total)};
    run["columnKind"] = "unicodeCodePoints";
    run["results"] = std::move(results);
    json::object document{{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
                          {"version", "2.1.0"}};
    document["runs"] = json::array{std::move(run)};
    return json::serialize(document) + '\n';
}

} // namespace refdoc::check
