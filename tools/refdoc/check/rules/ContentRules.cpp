#include "tools/refdoc/check/rules/ContentRules.hpp"

#include "tools/refdoc/check/rules/SchemaRules.hpp"

#include <boost/json/error.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;

namespace {

constexpr Rule kMalformedJson{
    "malformed-json", Severity::Error, "invalid JSON",
    "A file that is not valid JSON is dropped completely, like a missing file. An empty file is "
    "not valid either. Fix the error at the reported position."};

constexpr Rule kByteOrderMark{
    "byte-order-mark", Severity::Error, "the file begins with a byte-order mark",
    "JSON text must not begin with a byte-order mark (the bytes EF BB BF). The file is not valid "
    "JSON and is dropped completely. Save it as UTF-8 without a byte-order mark."};

constexpr Rule kNestingTooDeep{
    "nesting-too-deep", Severity::Error, "values are nested deeper than 32 levels",
    "The parser rejects objects and arrays that are nested deeper than 32 levels, and the file is "
    "dropped completely. The format needs at most eight levels: remove what is nested by mistake."};

constexpr std::string_view kMark = "\xEF\xBB\xBF";

Finding invalidJson(std::string_view text, const json::error_code& error,
                    const std::optional<TextPlace>& position, std::string_view reason) {
    Finding finding{.rule = &kMalformedJson,
                    .location = {.position = position},
                    .message = fmt::format("invalid JSON: {}; the whole file is dropped", reason)};
    if (text.starts_with(kMark)) {
        finding.rule = &kByteOrderMark;
        finding.message = "the file begins with a byte-order mark; the whole file is dropped";
    } else if (error == json::error::too_deep) {
        finding.rule = &kNestingTooDeep;
        finding.message = "values are nested deeper than 32 levels; the whole file is dropped";
    }
    return finding;
}

std::vector<Location*> locationsIn(std::vector<Finding>& findings) {
    std::vector<Location*> locations;
    for (Finding& finding : findings) {
        locations.push_back(&finding.location);
        for (RelatedLocation& related : finding.related)
            locations.push_back(&related.location);
    }
    return locations;
}

} // namespace

std::span<const Rule* const> contentRules() {
    static constexpr const Rule* kRules[] = {&kMalformedJson, &kByteOrderMark, &kNestingTooDeep};
    return kRules;
}

void checkContent(const FileAccount& account, const SourceFile& file, std::string_view text,
                  PendingFindings& pending, MergeLosses& losses, std::vector<Finding>& findings) {
    json::monotonic_resource arena;
    json::error_code error;
    const json::value document = json::parse(text, error, &arena);
    if (error) {
        findings.push_back(invalidJson(text, error, account.place, account.reason));
        return;
    }
    const bool isDropped = addSchemaFindings(
        account.role == FileRole::Lookup ? lookupSchema() : resourceSchema(), document, findings);
    if (account.fate == Fate::Malformed && !isDropped)
        findings.push_back(droppedFile(account));
    std::vector<Location*> compared;
    if (account.fate != Fate::Malformed) {
        pending.report(account, document, findings);
        compared = losses.read(file, account.sections, document);
    }
    std::vector<Location*> locations = locationsIn(findings);
    locations.insert(locations.end(), compared.begin(), compared.end());
    findPositions(text, locations);
}

std::vector<Finding> checkManifest(std::string_view text) {
    std::vector<Finding> findings;
    if (text.empty())
        return findings;
    json::error_code error;
    const json::value document = json::parse(text, error);
    if (error) {
        const auto problem = reference::docparser::findSyntaxProblem(text);
        findings.push_back(
            invalidJson(text, error, problem ? problem->place : TextPlace(), error.message()));
    } else {
        addSchemaFindings(manifestSchema(), document, findings);
        findPositions(text, locationsIn(findings));
    }
    return findings;
}

} // namespace refdoc::check
