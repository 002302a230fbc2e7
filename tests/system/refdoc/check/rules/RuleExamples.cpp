#include "tests/system/refdoc/check/rules/RuleExamples.hpp"

namespace refdoc_tests {

namespace {

const std::string kResources = "help/docCatalog/referenceapi/";
const std::string kLookups = "help/docCatalog/referenceapi_lookup/";
const std::string kSupport = "packages/help/docCatalog/referenceapi/";

const std::string kItem = R"({"href": "graft.html", "refpurpose": "Join"})";
const std::string kRecord = R"({"name": "graft", "href": "graft.html", "refpurpose": "Join"})";

// A section with its header on the first line and its items on lines of their own.
std::string sectionOf(const std::string& key, const std::string& items = {},
                      const std::string& more = {}) {
    return R"({"productName": "", "baseCode": "b", "helpFolder": ")" + key +
           R"(", "helpLocation": "help/)" + key + R"(", "refItems": [)" +
           (items.empty() ? "" : "\n" + items + "\n") + "]" + more + "}";
}

std::string supportPackage(const std::string& baseCode) {
    return R"({"productName": "", "baseCode": ")" + baseCode +
           R"(", "helpFolder": "k", "helpLocation": "k", "refItems": []})";
}

} // namespace

const std::vector<RuleExample>& ruleExamples() {
    static const std::vector<RuleExample>
        examples = {{"malformed-json",
                     {{kResources + "Orchard.json",
                       "{\"productName\": \"\",\n \"baseCode\" \"b\"}"}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:12: error: invalid JSON, so the whole file is dropped: missing colon after the key; add one [malformed-json])"},

                    {"byte-order-mark",
                     {{kResources + "Orchard.json", sectionOf("orchard"), Form::ByteOrderMark}},
                     R"(help/docCatalog/referenceapi/Orchard.json:1:1: error: the file begins with a byte-order mark; the whole file is dropped [byte-order-mark])"},

                    {"nesting-too-deep",
                     {{kResources + "Orchard.json",
                       "{\"unknown\":\n" + std::string(32, '[') + std::string(32, ']') + "}"}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:32: error: values are nested deeper than 32 levels; the whole file is dropped [nesting-too-deep])"},

                    {"repeated-key",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", kItem, ",\n \"refItems\": []")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:4:2: error: the object already has this key; the earlier value is ignored (refItems) [repeated-key]
    help/docCatalog/referenceapi/Orchard.json:1:95: the value that is ignored)"},

                    {"wrong-folder",
                     {{kResources + "Orchard.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi/Orchard.json: error: a lookup file in the folder of full resource files [wrong-folder])"},

                    {"missing-key",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "graft.html"})")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:1: error: the required key "refpurpose" is missing; the whole file is dropped (graft.html) [missing-key])"},

                    {"wrong-kind",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": 7, "refpurpose": "Join"})")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:10: error: expected a string, found a number; the whole file is dropped (refItems[0].href) [wrong-kind])"},

                    {"unknown-key",
                     {{kResources + "Orchard.json",
                       sectionOf(
                           "orchard",
                           R"({"href": "graft.html", "refpurpose": "Join", "introducd": "1.0"})")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:46: warning: unknown key "introducd", ignored; did you mean "introduced"? (graft.html) [unknown-key])"},

                    {"unknown-word",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "graft.html", "refpurpose": "Join",
 "refentity": [{"name": "graft", "type": "functon"}]})")},
                      {kLookups + "Orchard.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi/Orchard.json:3:42: warning: unknown word "functon", read as the default "function" (graft, refentity[0].type) [unknown-word])"},

                    {"not-ascii",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "grä.html", "refpurpose": "Join"})")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:10: warning: the string is read as ASCII: "ä" becomes "Ã¤" (grä.html, href) [not-ascii])"},

                    {"deprecated-false",
                     {{kResources + "Orchard.json", sectionOf("orchard", kItem)},
                      {kLookups + "Orchard.json",
                       sectionOf(
                           "orchard",
                           R"({"name": "graft", "href": "graft.html", "refpurpose": "Join", "deprecated": false})")}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.json:2:63: warning: "deprecated": false has the same effect as true (graft) [deprecated-false])"},

                    {"unknown-version",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", {}, ",\n \"schemaVersion\": \"2\"")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:19: note: unknown format version "2"; known: "2.0", "2.1" (schemaVersion) [unknown-version])"},

                    {"help-location",
                     {{kResources + "Orchard.json",
                       R"({"productName": "", "baseCode": "b", "helpFolder": "orchard",
 "helpLocation": "help/cellar", "refItems": []})"}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:18: note: the help location "help/cellar" does not contain the help folder "orchard" (helpLocation) [help-location])"},

                    {"repeated-section-key",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", {},
                                 ", \"supportPackages\": [\n" + supportPackage("kit") + ",\n" +
                                     supportPackage("kit") + "]")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:3:33: error: the section is dropped: an earlier section of the file has the key "kit" (supportPackages[1].baseCode) [repeated-section-key]
    help/docCatalog/referenceapi/Orchard.json:2:33: the section that is kept)"},

                    {"base-code-is-help-folder",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", {},
                                 ", \"supportPackages\": [\n" + supportPackage("orchard") + "]")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:33: error: the section is dropped: its base code "orchard" is the help folder of the main section (supportPackages[0].baseCode) [base-code-is-help-folder]
    help/docCatalog/referenceapi/Orchard.json:1:52: the section that is kept)"},

                    {"misnamed-folder",
                     {{kResources + "Orchard.json", sectionOf("orchard")},
                      {kLookups, {}, Form::Missing},
                      {"help/docCatalog/referenceapi-lookup/Orchard.json",
                       sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi-lookup: error: the folder is ignored: its name must be "referenceapi_lookup" [misnamed-folder])"},

                    {"no-lookup-folder",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "graft.html", "refpurpose": "Join",
 "refentity": [{"name": "graft"}]})")},
                      {kLookups, {}, Form::Missing}},
                     R"(help/docCatalog: warning: the folder "referenceapi_lookup" does not exist: no item can be found by its name [no-lookup-folder]
1 consequence of these findings not shown; see --show-consequences)"},

                    {"unreadable-file",
                     {{kLookups + "Orchard.json", {}, Form::Unopenable}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.json: error: the file is a link to a file that does not exist [unreadable-file])"},

                    {"not-a-file",
                     {{kResources + "Orchard.json", {}, Form::Folder}},
                     R"(help/docCatalog/referenceapi/Orchard.json: error: a folder, pipe or device has the name of a resource file [not-a-file])"},

                    {"over-limit",
                     {{kResources + "Orchard.json", {}, Form::OverLimit}},
                     R"(help/docCatalog/referenceapi/Orchard.json: error: the file is not read: larger than the limit of 1073741824 bytes [over-limit])"},

                    {"unreadable-package",
                     {{kLookups + "Orchard.zip", "not a package"}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.zip: error: the package can't be opened and is skipped: Not a zip archive [unreadable-package])"},

                    {"unreadable-entry",
                     {{kLookups + "Orchard.zip!Orchard.json", sectionOf("orchard"),
                       Form::Encrypted}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.zip!Orchard.json: error: the entry can't be read: it is encrypted [unreadable-entry])"},

                    {"extension-case",
                     {{kResources + "Orchard.JSON", sectionOf("orchard")}},
                     R"(help/docCatalog/referenceapi/Orchard.JSON: error: the file is ignored: its extension must be "json", in lower case [extension-case])"},

                    {"ignored-file",
                     {{kResources + "Orchard.json.bak", sectionOf("orchard")}},
                     R"(help/docCatalog/referenceapi/Orchard.json.bak: warning: the file is ignored: its name is not that of a resource file [ignored-file])"},

                    {"unsupported-language",
                     {{"installation.json", R"({"supportedDocLanguages": ["en", "de"]})"},
                      {kResources + "Orchard.json", sectionOf("orchard")},
                      {kResources + "Orchard_fr.json", sectionOf("orchard")}},
                     R"(help/docCatalog/referenceapi/Orchard_fr.json: warning: "fr" is not a supported language; the file is read as the English file of a product "Orchard_fr" [unsupported-language])"},

                    {"cut-product-name",
                     {{"installation.json", R"({"supportedDocLanguages": ["en", "de"]})"},
                      {kResources + "Orchard.json", sectionOf("orchard", kItem)},
                      {kLookups + "Orchard_demo_de.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard_demo_de.json: error: in the language "de", the product name "Orchard_demo" is cut to "Orchard" [cut-product-name])"},

                    {"package-language",
                     {{"installation.json", R"({"supportedDocLanguages": ["en", "de"]})"},
                      {kLookups + "Orchard_de.zip!Orchard.json", sectionOf("orchard")}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard_de.zip!Orchard.json: error: the name of the package says "de", the name of its only entry says English; the entry is never read [package-language])"},

                    {"extra-entry",
                     {{kResources + "Orchard.json", sectionOf("orchard")},
                      {kLookups + "Orchard.zip!Orchard.json", sectionOf("orchard")},
                      {kLookups + "Orchard.zip!readme.txt", "Read me"}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.zip!readme.txt: warning: the entry is not read, but because of it the name of "Orchard.json" decides the language, not that of the package [extra-entry])"},

                    {"shadowed-file",
                     {{"installation.json", R"({"supportPackageRoot": "packages"})"},
                      {kResources + "Orchard.json", sectionOf("orchard")},
                      {kSupport + "Orchard.json", sectionOf("orchard")}},
                     R"(packages/help/docCatalog/referenceapi/Orchard.json: warning: the file is never read: the reference root has the product [shadowed-file])"},

                    {"dropped-record",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard",
                                 kItem + ",\n" + R"({"href": "join.html", "refpurpose": "Join"})")},
                      {kLookups + "Orchard.zip!Orchard.json", sectionOf("orchard", kRecord)},
                      {kLookups + "Orchard.json",
                       sectionOf(
                           "orchard",
                           R"({"name": "graft", "href": "join.html", "refpurpose": "Join"})")}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.json:2:1: warning: the record "graft" with the link "join.html" is lost in the merge: help/docCatalog/referenceapi_lookup/Orchard.zip!Orchard.json has at least as many records of the name (graft) [dropped-record]
    help/docCatalog/referenceapi_lookup/Orchard.zip!Orchard.json:2:1: the record that is kept)"},

                    {"hidden-record",
                     {{"installation.json", R"({"supportedDocLanguages": ["en", "de"]})"},
                      {kResources + "Orchard.json",
                       sectionOf("orchard",
                                 kItem + ",\n" + R"({"href": "join.html", "refpurpose": "Join"})")},
                      {kLookups + "Orchard.json",
                       sectionOf(
                           "orchard",
                           R"({"name": "graft", "href": "join.html", "refpurpose": "Join"})")},
                      {kLookups + "Orchard_de.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard_de.json:2:1: warning: the translation hides the record "graft" with the link "join.html" of help/docCatalog/referenceapi_lookup/Orchard.json because it has at least as many records of the name (graft) [hidden-record]
    help/docCatalog/referenceapi_lookup/Orchard.json:2:1: the hidden record)"},

                    {"lookup-without-page",
                     {{kResources + "Orchard.json", sectionOf("orchard")},
                      {kLookups + "Orchard.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.json:2:1: warning: no item of the product "Orchard" has the link "graft.html" of the record "graft" (graft) [lookup-without-page])"},

                    {"page-without-lookup",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "graft.html", "refpurpose": "Join",
 "refentity": [{"name": "graft"}]})")},
                      {kLookups + "Orchard.json", sectionOf("orchard")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:2:1: note: no lookup record has the link "graft.html": the item can't be found by name (graft) [page-without-lookup])"},

                    {"broken-link",
                     {{kResources + "Orchard.json",
                       sectionOf("orchard", R"({"href": "graft.html", "refpurpose": "Join",
 "seealso": [{"url": "nowhere.html", "name": "Nowhere"}]})")}},
                     R"(help/docCatalog/referenceapi/Orchard.json:3:22: warning: no product has an item with the link "nowhere.html" (graft.html, seealso[0].url) [broken-link])"},

                    {"lookup-without-resources",
                     {{kLookups + "Orchard.json", sectionOf("orchard", kRecord)}},
                     R"(help/docCatalog/referenceapi_lookup/Orchard.json:1:1: warning: the product "Orchard" has no full resources [lookup-without-resources])"},

                    {"installed-without-documentation",
                     {{"installation.json", R"({"topLevelProducts": [{"shortName": "orchard"}]})"},
                      {kResources + "Cellar.json", sectionOf("cellar")}},
                     R"(installation.json:1:37: warning: the installed product "orchard" has neither lookup records nor full resources (topLevelProducts[0].shortName) [installed-without-documentation])"}};
    return examples;
}

} // namespace refdoc_tests
