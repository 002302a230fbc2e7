#include "tools/refdoc/check/rules/ContentRules.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/check/rules/SchemaRules.hpp"
#include "tools/refdoc/check/text/JsonDiagnosis.hpp"
#include "tools/refdoc/check/text/RepeatedKeys.hpp"

#include <boost/json/error.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::FileRole;
using reference::docparser::placeOfOffset;

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

constexpr Rule kRepeatedKey{
    "repeated-key", Severity::Error, "an object has the same key twice",
    "If an object repeats a key, only the last value counts. A second `refItems` that is empty, "
    "for "
    "example, drops all items of its section. Merge the two values or remove one of them."};

constexpr Rule kWrongFolder{
    "wrong-folder", Severity::Error, "the file belongs in another folder",
    "Lookup files are read only in the folder `referenceapi_lookup`, full resource files only in "
    "`referenceapi`. The content of the file is that of the other type, so its records are lost. "
    "Move the file. Its other findings are not reported.",
    Relation::CostsProduct};

constexpr std::string_view kMark = "\xEF\xBB\xBF";

// \param parserPosition  where the parser stopped
Finding invalidJson(std::string_view text, const json::error_code& error,
                    const TextPlace& parserPosition) {
    if (text.starts_with(kMark))
        return {.rule = &kByteOrderMark,
                .location = {.position = parserPosition},
                .message = "the file begins with a byte-order mark; the whole file is dropped"};
    if (error == json::error::too_deep)
        return {.rule = &kNestingTooDeep,
                .location = {.position = parserPosition},
                .message = "values are nested deeper than 32 levels; the whole file is dropped"};
    const JsonDiagnosis diagnosis = diagnoseJson(text, parserPosition.offset, error);
    return {.rule = &kMalformedJson,
            .location = {.position = placeOfOffset(text, diagnosis.offset)},
            .message =
                fmt::format("invalid JSON, so the whole file is dropped: {}", diagnosis.message)};
}

void addRepeatedKeys(const SourceFile& file, std::string_view text,
                     std::vector<Finding>& findings) {
    for (const auto& [pointer, earlier, later] : findRepeatedKeys(text)) {
        Finding finding{.rule = &kRepeatedKey,
                        .location = {.pointer = pointer, .position = placeOfOffset(text, later)},
                        .message = "the object already has this key; the earlier value is ignored",
                        .identity = pointer};
        finding.related.push_back(
            {file, {.position = placeOfOffset(text, earlier)}, "the value that is ignored"});
        findings.push_back(std::move(finding));
    }
}

Finding wrongFolder(FileRole role) {
    return {.rule = &kWrongFolder,
            .message = role == FileRole::Lookup
                           ? "a full resource file in the folder of lookup files"
                           : "a lookup file in the folder of full resource files"};
}

// Returns the array at a key; empty if there is none.
const json::array& arrayIn(const json::value& value, std::string_view key) {
    static const json::array empty;
    const json::object* object = value.if_object();
    const json::value* array = object ? object->if_contains(key) : nullptr;
    return array && array->is_array() ? array->get_array() : empty;
}

// Returns the items of each section.
std::vector<const json::array*> itemLists(const json::value& document) {
    std::vector<const json::array*> lists{&arrayIn(document, "refItems")};
    for (const json::value& section : arrayIn(document, "supportPackages"))
        lists.push_back(&arrayIn(section, "refItems"));
    return lists;
}

// Returns the role of the file of an item; empty if the keys that the roles have in common are all
// that it has, or if it has keys of both.
std::optional<FileRole> roleOfItem(const json::object& item) {
    const auto isFullKey = [](const json::key_value_pair& member) {
        const SchemaNode& full = *resourceSchema().root().find("refItems")->node->items;
        const SchemaNode& record = *lookupSchema().root().find("refItems")->node->items;
        return full.find(member.key()) && !record.find(member.key());
    };
    const bool isFull = std::ranges::any_of(item, isFullKey);
    if (item.contains("name") == isFull)
        return std::nullopt;
    return isFull ? FileRole::Resources : FileRole::Lookup;
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
    static constexpr const Rule* kRules[] = {&kMalformedJson, &kByteOrderMark, &kNestingTooDeep,
                                             &kRepeatedKey, &kWrongFolder};
    return kRules;
}

std::optional<FileRole> roleOf(const json::value& document) {
    std::size_t namelessItems = 0;
    for (const json::array* items : itemLists(document)) {
        for (const json::value& element : *items) {
            const json::object* item = element.if_object();
            if (const auto role = item ? roleOfItem(*item) : std::nullopt)
                return role;
            namelessItems += item && !item->contains("name") ? 1 : 0;
        }
    }
    // One nameless item may be a record whose name is missing.
    return namelessItems > 1 ? std::optional(FileRole::Resources) : std::nullopt;
}

void checkContent(const FileAccount& account, const SourceFile& file, std::string_view text,
                  PendingFindings& pending, MergeLosses& losses, std::vector<Finding>& findings) {
    json::monotonic_resource arena;
    json::error_code error;
    const json::value document = json::parse(text, error, &arena);
    if (error) {
        findings.push_back(invalidJson(text, error, account.place.value_or(TextPlace())));
        return;
    }
    if (const auto role = roleOf(document); role && *role != account.role) {
        findings.push_back(wrongFolder(account.role));
        return;
    }
    addRepeatedKeys(file, text, findings);
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

std::vector<Finding> checkManifest(const SourceFile& file, std::string_view text) {
    std::vector<Finding> findings;
    if (text.empty())
        return findings;
    json::error_code error;
    const json::value document = json::parse(text, error);
    if (error) {
        const auto problem = reference::docparser::findSyntaxProblem(text);
        findings.push_back(invalidJson(text, error, problem ? problem->place : TextPlace()));
    } else {
        addRepeatedKeys(file, text, findings);
        addSchemaFindings(manifestSchema(), document, findings);
        findPositions(text, locationsIn(findings));
    }
    return findings;
}

} // namespace refdoc::check
