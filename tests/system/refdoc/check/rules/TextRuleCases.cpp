#include "tests/system/refdoc/check/rules/RuleCases.hpp"

namespace refdoc_tests {

namespace {

using enum CaseType;

std::string supportPackages(const std::vector<std::string>& baseCodes) {
    std::string sections;
    for (const std::string& baseCode : baseCodes)
        sections += (sections.empty() ? "\n" : ",\n") +
                    (R"({"productName": "", "baseCode": ")" + baseCode +
                     R"(", "helpFolder": "f", "helpLocation": "f", "refItems": []})");
    return ", \"supportPackages\": [" + sections + "]";
}

std::string nested(std::size_t depth) {
    return text("", ",\n\"x\": " + std::string(depth, '[') + std::string(depth, ']'));
}

std::string lines(std::size_t count, const std::string& item) {
    std::string lines;
    for (; count > 0; --count)
        lines += item + ",\n";
    return lines;
}

// A rule about the text of a file, checked in a file, an entry and a translation.
struct TextCase {
    std::string rule;
    std::set<CaseType> types;
    std::string text;
    std::vector<std::string> places{}; // such as ":2:1"; "" is the file as a whole
};

const std::set<CaseType> kViolation = {Entry, Translation};

const std::vector<TextCase> kTextCases = {
    {"malformed-json", kViolation, "{", {":1:2"}},
    {"malformed-json", {Negative}, text(record("h")) + " \n"},
    {"malformed-json", {Boundary}, "", {":1:1"}},
    {"malformed-json", {Boundary}, text("") + "]", {":3:3"}},

    {"byte-order-mark", kViolation, "\xEF\xBB\xBF" + text(""), {":1:1"}},
    {"byte-order-mark", {Negative}, text(record("h", ",\n\"x\": \"\xEF\xBB\xBF\""))},
    {"byte-order-mark", {Boundary}, "\xEF\xBB\xBF", {":1:1"}},
    {"byte-order-mark", {Boundary}, "\xEF\xBB" + text("")},

    {"nesting-too-deep", kViolation, nested(40), {":4:37"}},
    {"nesting-too-deep", {Negative}, text("", ", \"x\": \"" + std::string(40, '[') + '"')},
    {"nesting-too-deep", {Boundary}, nested(31)},
    {"nesting-too-deep", {Boundary}, nested(32), {":4:37"}},

    {"repeated-key", kViolation, text(record("h", R"(, "name": "m")")), {":2:46"}},
    {"repeated-key", {Negative}, text(record("h") + ",\n" + record("h"))},
    {"repeated-key", {Boundary}, text(record("h", R"(, "Name": "m")"))},
    {"repeated-key", {Boundary}, text(record("h", R"(, "n\u0061me": "m")")), {":2:46"}},

    {"wrong-folder", kViolation, text(item("h", R"(, "refentity": [])")), {""}},
    {"wrong-folder", {Negative}, text(record("h"))},
    {"wrong-folder", {Boundary}, text(item("h"))},
    {"wrong-folder", {Boundary}, text(item("h") + ",\n" + item("i")), {""}},

    {"missing-key", kViolation, text(R"({"name": "n", "href": "h"})"), {":2:1"}},
    {"missing-key", {Negative}, text(R"({"name": "", "href": "", "refpurpose": ""})")},
    {"missing-key", {Boundary}, text(R"({"name": "n", "href": "h", "Refpurpose": ""})"), {":2:1"}},
    {"missing-key", {Boundary}, "{}", {":1:1", ":1:1", ":1:1", ":1:1", ":1:1"}},

    {"wrong-kind", kViolation, text(R"({"name": "n", "href": 7, "refpurpose": ""})"), {":2:23"}},
    {"wrong-kind", {Negative}, text(record("h", R"(, "deprecated": 7, "type": 7, "x": 7)"))},
    {"wrong-kind", {Boundary}, text(R"({"name": null, "href": "h", "refpurpose": ""})"), {":2:10"}},
    {"wrong-kind", {Boundary}, "[]", {":1:1"}},

    {"unknown-key", kViolation, text(record("h", R"(, "x": 1)")), {":2:46"}},
    {"unknown-key", {Negative}, text(record("h"), R"(, "$schema": "s")")},
    {"unknown-key", {Boundary}, text(record("h", R"(, "$schema": "s")")), {":2:46"}},
    {"unknown-key", {Boundary}, text(record("h", R"(, "Type": "class")")), {":2:46"}},
    {"unknown-key",
     {Boundary},
     text(lines(9, record("h")) + lines(2, record("h", R"(, "x": 1)")) + record("h")),
     {":11:46", ":12:46"}},

    {"unknown-word", kViolation, text(record("h", R"(, "type": "functon")")), {":2:54"}},
    {"unknown-word", {Negative}, text(record("h", R"(, "type": "function")"))},
    {"unknown-word", {Boundary}, text(record("h", R"(, "type": "Function")")), {":2:54"}},
    {"unknown-word", {Boundary}, text(record("h", R"(, "type": "")")), {":2:54"}},
    {"unknown-word", {Boundary}, text(record("h", R"(, "type": null)")), {":2:54"}},

    {"not-ascii", kViolation, text(record("ä")), {":2:23"}},
    {"not-ascii", {Negative}, text(R"({"name": "ä", "href": "h", "refpurpose": "ä"})")},
    {"not-ascii", {Boundary}, text(record(R"(\u0000)"))},
    {"not-ascii", {Boundary}, text(record(R"(\u007f)"))},
    {"not-ascii", {Boundary}, text(record(R"(\u0080)")), {":2:23"}},

    {"deprecated-false", kViolation, text(record("h", R"(, "deprecated": false)")), {":2:46"}},
    {"deprecated-false", {Negative}, text(record("h", R"(, "deprecated": true)"))},
    {"deprecated-false", {Boundary}, text(record("h", R"(, "deprecated": null)"))},
    {"deprecated-false", {Boundary}, text(record("h", R"(, "deprecated": 0)"))},

    {"unknown-version", kViolation, text("", ",\n\"schemaVersion\": \"2\""), {":4:18"}},
    {"unknown-version", {Negative}, text("", ",\n\"schemaVersion\": \"2.1\"")},
    {"unknown-version", {Boundary}, text("", ",\n\"schemaVersion\": \"2.10\""), {":4:18"}},
    {"unknown-version", {Boundary}, text("", ",\n\"schemaVersion\": \"\""), {":4:18"}},

    {"help-location", kViolation, text("", "", "help/c"), {":1:73"}},
    {"help-location", {Negative}, text("", "", "help/k/en")},
    {"help-location", {Boundary}, text("", "", "help/kk"), {":1:73"}},
    {"help-location", {Boundary}, text("", "", "k")},
    {"help-location", {Boundary}, text("", "", "b")},
    {"help-location", {Boundary}, text("", "", "")},

    {"repeated-section-key", kViolation, text("", supportPackages({"s", "s"})), {":5:33"}},
    {"repeated-section-key", {Negative}, text("", supportPackages({"s", "S"}))},
    {"repeated-section-key",
     {Boundary},
     text("", supportPackages({"s", "t", "s", "s"})),
     {":6:33", ":7:33"}},

    {"base-code-is-help-folder", kViolation, text("", supportPackages({"k"})), {":4:33"}},
    {"base-code-is-help-folder", {Negative}, text("", supportPackages({"b", "f", "K"}))},
    {"base-code-is-help-folder",
     {Boundary},
     text("", supportPackages({"s", "k", "k"})),
     {":5:33", ":6:33"}},
};

RuleCase fullCase(const TextCase& row) {
    RuleCase result{row.rule, row.types, {germanManifest()}};
    for (const char* path :
         {"lookup/Entry.zip!Entry.json", "lookup/File.json", "lookup/Text_de.json"}) {
        result.files.push_back({path, row.text});
        for (const std::string& place : row.places)
            result.places.append(result.places.empty() ? "" : " ").append(path).append(place);
    }
    return result;
}

} // namespace

std::vector<RuleCase> textRuleCases() {
    std::vector<RuleCase> cases;
    for (const TextCase& row : kTextCases)
        cases.push_back(fullCase(row));
    return cases;
}

} // namespace refdoc_tests
