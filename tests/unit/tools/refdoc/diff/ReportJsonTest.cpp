#include "tests/support/Schema.hpp"
#include "tests/unit/tools/refdoc/diff/ReportChanges.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>

namespace refdoc_tests {
namespace {

using namespace refdoc::diff;
using docparser_tests::Schema;

constexpr const char* kOutput = "refdoc-output.schema.json";

const std::vector<DamagedFile> kDamagedFiles{{Side::Both, "a.json", "line 1: \"x\""},
                                             {Side::Old, "b.zip!b.json", "too deep"}};

TEST(ReportJsonTest, PrintsOneDocument) {
    EXPECT_EQ(wholeOutput(*jsonOutput(),
                          {smoothField(ChangeClass::Breaking, "/inputs/0/defaultValue", "1", "2")},
                          kDamagedFiles),
              R"({
  "changes": [
    {
      "id": "item-changed",
      "class": "breaking",
      "product": "Orchard",
      "section": "orchard",
      "href": "ref/smooth.html",
      "newHref": "",
      "certainty": 100,
      "name": "smooth",
      "oldIndex": null,
      "newIndex": null,
      "field": "/inputs/0/defaultValue",
      "oldField": "/inputs/0/defaultValue",
      "old": "1",
      "new": "2"
    }
  ],
  "summary": {
    "breaking": 1,
    "notable": 0,
    "textual": 0
  },
  "damagedFiles": [
    {
      "side": "both",
      "path": "a.json",
      "error": "line 1: \"x\""
    },
    {
      "side": "old",
      "path": "b.zip!b.json",
      "error": "too deep"
    }
  ]
}
)");
}

TEST(ReportJsonTest, PrintsAnEmptyDocument) {
    EXPECT_EQ(wholeOutput(*jsonOutput(), {}), R"({
  "changes": [],
  "summary": {
    "breaking": 0,
    "notable": 0,
    "textual": 0
  },
  "damagedFiles": []
}
)");
    EXPECT_EQ(wholeOutput(*jsonLinesOutput(), {}), "");
}

TEST(ReportJsonTest, ProductsFollowEachOtherInOneDocument) {
    const auto output = jsonOutput();
    const std::vector<Change> changes = changeOfEachId();
    Summary summary = summaryOf(changes);
    const boost::json::value document =
        json(output->head() + productOutput(*output, changes) + output->separator() +
             productOutput(*output, changes) + output->tail(summary));
    EXPECT_EQ(document.at("changes").as_array().size(), 2 * changes.size());
}

TEST(ReportJsonTest, LinesEqualTheElementsOfTheDocument) {
    const std::vector<Change> changes = changeOfEachId();
    std::istringstream lines(wholeOutput(*jsonLinesOutput(), changes, kDamagedFiles));
    boost::json::array elements;
    for (std::string line; std::getline(lines, line);)
        elements.push_back(json(line));
    EXPECT_EQ(elements, json(wholeOutput(*jsonOutput(), changes)).at("changes"));
    ASSERT_EQ(elements.size(), changes.size());
    EXPECT_EQ(elements.back(), json(R"({
        "id": "lookup-changed", "class": "notable", "product": "Orchard", "section": "orchard",
        "href": "ref/smooth.html", "newHref": "", "certainty": 100, "name": "smooth",
        "oldIndex": 0, "newIndex": 1, "field": "/deprecated", "oldField": "/deprecated",
        "old": false, "new": true})"));
}

TEST(ReportJsonTest, NoStringEndsALineOrReachesATerminal) {
    const std::string output = wholeOutput(
        *jsonLinesOutput(),
        {smoothField(ChangeClass::Textual, "/refPurpose", "\n\r\xc2\x85\xe2\x80\xa8", "\x1b\x7f")});
    EXPECT_EQ(std::ranges::count(output, '\n'), 1);
    EXPECT_NE(output.find(R"("old":"\n\r\u0085\u2028","new":"\u001b\u007f")"), output.npos)
        << output;
}

// The values of one change: as their sections, records and elements are in the output.
std::vector<Change> changesWithWholeRecords() {
    const boost::json::value header = json(R"({
        "schema": "", "schemaVersion": "", "productName": "", "baseCode": "or", "helpFolder": "",
        "helpLocation": "", "product": "Orchard"})");
    const boost::json::value entry = json(R"({
        "name": "a", "entityType": "function", "refPurpose": "", "deprecated": false,
        "href": "a.html", "functionType": "function"})");
    const boost::json::value input = json(R"({
        "objectInfo": {"name": "x", "purpose": "", "values": [], "href": ""},
        "syntaxType": "function", "defaultValue": "", "isNameValuePair": false})");
    boost::json::value section = json(R"({"resources": null, "lookup": {"items": {"a": []}}})");
    section.at_pointer("/lookup").as_object()["header"] = header;
    section.at_pointer("/lookup/items/a").as_array().push_back(entry);
    boost::json::value product = json(R"({"resources": {}, "lookup": {}})");
    product.at_pointer("/lookup").as_object()["or"] = section.at("lookup");

    Change productAdded = inOrchard(ChangeId::ProductAdded, ChangeClass::Notable);
    productAdded.newValue = product;
    Change sectionRemoved = inOrchard(ChangeId::SectionRemoved, ChangeClass::Breaking);
    sectionRemoved.oldValue = section;
    Change lookupAdded = inOrchard(ChangeId::LookupAdded, ChangeClass::Notable);
    lookupAdded.newValue = entry;
    return {
        productAdded,
        sectionRemoved,
        lookupAdded,
        smoothField(ChangeClass::Notable, "/inputs/0", nullptr, input),
        smoothField(ChangeClass::Textual, "/inputs", json(R"(["a", "b"])"), json(R"(["b", "a"])")),
        smoothField(ChangeClass::Breaking, "/syntaxGroups/0/syntaxes/0", "f(x)", nullptr),
        smoothField(ChangeClass::Textual, "/inputs/0/isNameValuePair", false, true)};
}

TEST(ReportJsonTest, OutputIsValid) {
    const std::string output = wholeOutput(*jsonOutput(), changesWithWholeRecords(), kDamagedFiles);
    EXPECT_EQ(Schema(kOutput, "diff").problemsOf(json(output)), "");
    EXPECT_TRUE(Schema(kOutput).accepts(json(output)));
    EXPECT_EQ(Schema(kOutput, "diff").problemsOf(json(wholeOutput(*jsonOutput(), {}))), "");
    const Schema line(kOutput, "diffLine");
    const boost::json::value document = json(output);
    for (const boost::json::value& change : document.at("changes").as_array())
        EXPECT_EQ(line.problemsOf(change), "");
}

TEST(ReportJsonTest, EachIdAndClassIsValid) {
    const Schema schema(kOutput, "diffLine");
    for (Change change : changeOfEachId()) {
        change.oldValue = nullptr;
        change.newValue = nullptr;
        const std::string line = productOutput(*jsonLinesOutput(), {change});
        EXPECT_EQ(schema.problemsOf(json(line)), "") << line;
    }
}

// Calls use() with the object and with each one inside of it.
void forEachObject(boost::json::value& value,
                   const std::function<void(boost::json::object&)>& use) {
    if (boost::json::array* array = value.if_array()) {
        for (boost::json::value& element : *array)
            forEachObject(element, use);
    } else if (boost::json::object* object = value.if_object()) {
        for (auto& member : *object)
            forEachObject(member.value(), use);
        use(*object);
    }
}

TEST(ReportJsonTest, SchemaRejectsMissingAndAdditionalMembers) {
    const Schema schema(kOutput, "diff");
    boost::json::value document = json(
        wholeOutput(*jsonOutput(), {smoothField(ChangeClass::Textual, "/refPurpose", "a", "b")},
                    kDamagedFiles));
    int damages = 0;
    forEachObject(document, [&](boost::json::object& object) {
        const boost::json::object whole = object;
        for (const auto& member : whole) {
            object.erase(member.key());
            EXPECT_FALSE(schema.accepts(document)) << member.key();
            object = whole;
            ++damages;
        }
        object.emplace("surprise", "");
        EXPECT_FALSE(schema.accepts(document));
        object = whole;
    });
    EXPECT_EQ(damages, 14 + 3 + 2 * 3 + 3);
    EXPECT_TRUE(schema.accepts(document));
}

} // namespace
} // namespace refdoc_tests
