#include "tests/unit/tools/refdoc/diff/ReportChanges.hpp"
#include "tools/refdoc/diff/report/ChangeWords.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <utility>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using namespace refdoc::diff;

constexpr const char* kTitles = "Orchard\n"
                                "=======\n"
                                "\n"
                                "Section orchard\n"
                                "---------------\n";
constexpr const char* kSmooth = "item smooth (ref/smooth.html)\n";

std::string textOf(const std::vector<Change>& changes, const PageSetup& setup = kPipe) {
    return productOutput(*textOutput(setup), changes);
}

// The line of one changed field of an item, on a pipe.
std::string lineOf(const std::string& field, const boost::json::value& oldValue,
                   const boost::json::value& newValue) {
    const std::string text = textOf({smoothField(ChangeClass::Textual, field, oldValue, newValue)});
    const std::string before = std::string(kTitles) + kSmooth + "  textual   ";
    EXPECT_TRUE(text.starts_with(before)) << text;
    return text.substr(before.size());
}

TEST(ReportTextTest, PrintsALineForEachChange) {
    EXPECT_EQ(wholeOutput(*textOutput(kPipe), changeOfEachId()),
              "Orchard\n"
              "=======\n"
              "notable   product added: 3 items\n"
              "breaking  product removed: 3 items\n"
              "\n"
              "Section orchard\n"
              "---------------\n"
              "notable   section added: 3 items, 1 entry\n"
              "breaking  section removed: empty\n"
              "textual   header, help folder: help/[-a-]{+b+}\n"
              "notable   item added: wave, ripple (ref/wave.html)\n"
              "breaking  item removed: ref/fade.html\n"
              "breaking  item moved: hum (ref/hum.html → ref/buzz.html), 87 % sure\n"
              "item smooth (ref/smooth.html)\n"
              "  textual   purpose: Shift a [-series-]{+signal+}\n"
              "notable   entry added: wave (ref/wave.html)\n"
              "breaking  entry removed: fade (ref/fade.html)\n"
              "entry smooth (ref/smooth.html, record 2)\n"
              "  notable   deprecated: [-false-]{+true+}\n"
              "\n"
              "12 differences: 5 breaking, 5 notable, 2 textual\n");
}

TEST(ReportTextTest, GroupsTheFieldsOfARecordAndTheRecordsOfASection) {
    Change purpose = smoothField(ChangeClass::Textual, "/refPurpose", "a", "b");
    Change status = smoothField(ChangeClass::Notable, "/deprecationStatus", "none", "deprecated");
    Change other = purpose;
    other.href = "ref/b.html";
    other.name.clear();
    Change moved = inOrchard(ChangeId::ItemMoved, ChangeClass::Breaking);
    moved.href = "ref/c.html";
    moved.newHref = "ref/d.html";
    moved.name = "c";
    Change movedField = purpose;
    movedField.href = moved.href;
    movedField.newHref = moved.newHref;
    movedField.name = moved.name;
    Change inCellar = purpose;
    inCellar.section = "cellar";
    EXPECT_EQ(textOf({purpose, status, other, moved, movedField, inCellar}),
              "Orchard\n"
              "=======\n"
              "\n"
              "Section cellar\n"
              "--------------\n"
              "item smooth (ref/smooth.html)\n"
              "  textual   purpose: [-a-]{+b+}\n"
              "\n"
              "Section orchard\n"
              "---------------\n"
              "item smooth (ref/smooth.html)\n"
              "  textual   purpose: [-a-]{+b+}\n"
              "  notable   deprecation status: [-none-]{+deprecated+}\n"
              "item ref/b.html\n"
              "  textual   purpose: [-a-]{+b+}\n"
              "breaking  item moved: c (ref/c.html → ref/d.html), 100 % sure\n"
              "  textual   purpose: [-a-]{+b+}\n");
}

TEST(ReportTextTest, NamesFieldsAndElements) {
    EXPECT_EQ(lineOf("/description", "", "New text"), "description: {+New text+}\n");
    EXPECT_EQ(lineOf("/inputs/1", nullptr, json(R"({"objectInfo": {"name": "width"}})")),
              "input 2 added: width\n");
    EXPECT_EQ(lineOf("/syntaxGroups/0/syntaxes/9", "f(x)", nullptr),
              "syntax group 1, syntax 10 removed: f(x)\n");
    EXPECT_EQ(lineOf("/inputs/1/objectInfo/purpose", "The width", "The height"),
              "input 2, purpose: The [-width-]{+height+}\n");
    EXPECT_EQ(lineOf("/outputs", json(R"(["a", "b", "c"])"), json(R"(["b", "a", "c"])")),
              "outputs, order: [-a-]{+b+}, [-b-]{+a+}, c\n");
    EXPECT_EQ(lineOf("/seeAlso/0", json(R"({"url": "a.html", "name": ""})"), nullptr),
              "see also 1 removed: a.html\n");
    EXPECT_EQ(lineOf("/appThumbnail", nullptr, json(R"({"fileRef": "a.png", "alt": "b"})")),
              "app thumbnail added: a.png\n");
}

TEST(ReportTextTest, FieldsInWordsFollowFromTheirNames) {
    for (const auto& [pointer, words] : std::vector<std::pair<std::string, std::string>>{
             {"", ""},
             {"/refEntities/0", "entity 1"},
             {"/ref", "ref"},
             {"/references", "references"},
             {"/classPropertyGroups/19/properties/9", "class property group 20, property 10"},
             {"/inputs/99", "input 100"},
             {"/futureThings/0/wideName", "future thing 1, wide name"},
             {"/examples/0/openCommand", "example 1, open command"}})
        EXPECT_EQ(fieldText(pointer), words);
}

TEST(ReportTextTest, ShowsHostileText) {
    EXPECT_EQ(lineOf("/refPurpose", "a\x1b[31m\n", "a\x1b[31m\t"), "purpose: a␛[31m[-␊-]{+␉+}\n");
    EXPECT_EQ(lineOf("/refPurpose", "\xc2\x85", "\xc2\x86"), "purpose: [-\ufffd-]{+\ufffd+}\n");
    Change change = inOrchard(ChangeId::ItemRemoved, ChangeClass::Breaking);
    change.section = "or\nchard";
    change.href = "\x1b]0;x\x07";
    change.name = "\r\x7f";
    EXPECT_EQ(productOutput(*textOutput(kPipe), {change}), "Orchard\n"
                                                           "=======\n"
                                                           "\n"
                                                           "Section or␊chard\n"
                                                           "----------------\n"
                                                           "breaking  item removed: ␍␡ (␛]0;x␇)\n");
    EXPECT_TRUE(textOutput(kPipe)->product({"\x1b", {change}}).starts_with("␛\n=\n"));
}

TEST(ReportTextTest, PaintsWordsAndKeepsTheMarks) {
    EXPECT_EQ(textOf({smoothField(ChangeClass::Breaking, "/inputs/0/defaultValue", "1", "2")},
                     {80, kPipe.lineWidth, true}),
              "\x1b[1mOrchard\x1b[0m\n"
              "\x1b[2m=======\x1b[0m\n"
              "\n"
              "\x1b[1mSection orchard\x1b[0m\n"
              "\x1b[2m---------------\x1b[0m\n"
              "item \x1b[1msmooth\x1b[0m (ref/smooth.html)\n"
              "  \x1b[31mbreaking\x1b[0m  input 1, default value: "
              "\x1b[31m[-1-]\x1b[0m\x1b[32m{+2+}\x1b[0m\n");
}

const Change kLongChange =
    smoothField(ChangeClass::Textual, "/refPurpose",
                "Shift a series of measured values to the left or to the right",
                "Shift a signal with many values to the left or to the right 系列を平滑化");

TEST(ReportTextTest, WrapsLinesOnATerminal) {
    EXPECT_EQ(textOf({kLongChange}, {50, 50, false}),
              std::string(kTitles) + kSmooth +
                  "  textual   purpose: Shift a [-series of\n"
                  "            measured-]{+signal with many+} values\n"
                  "            to the left or to the right{+ 系列を平\n"
                  "            滑化+}\n");
}

TEST(ReportTextTest, PutsTheClassOnALineOfItsOwnOnANarrowTerminal) {
    EXPECT_EQ(textOf({kLongChange}, {30, 30, false}), std::string(kTitles) + kSmooth +
                                                          "  textual\n"
                                                          "    purpose: Shift a [-series\n"
                                                          "    of measured-]{+signal with\n"
                                                          "    many+} values to the left\n"
                                                          "    or to the right{+ 系列を平\n"
                                                          "    滑化+}\n");
}

std::string withoutColor(const std::string& text) {
    return std::regex_replace(text, std::regex("\x1b\\[[0-9]+m"), "");
}

TEST(ReportTextTest, ColorChangesNoCharacterAtAnyWidth) {
    std::vector<Change> changes = changeOfEachId();
    changes.push_back(kLongChange);
    for (std::size_t width = 20; width <= 100; ++width) {
        const std::string plain = textOf(changes, {width, width, false});
        EXPECT_EQ(withoutColor(textOf(changes, {width, width, true})), plain);
        std::istringstream lines(plain);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(displayWidth(line), width) << line;
    }
}

TEST(ReportTextTest, SummaryTellsOfDamagedFiles) {
    const auto output = textOutput(kPipe);
    Summary summary;
    EXPECT_EQ(output->tail(summary), "no differences\n");
    summary.damagedFiles = {{Side::Old, "a.json", "broken"}};
    EXPECT_EQ(output->tail(summary), "no differences in undamaged files\n");
    summary.only = ChangeClass::Breaking;
    EXPECT_EQ(output->tail(summary), "no breaking differences in undamaged files\n");
    summary.counts = {1, 0, 0};
    EXPECT_EQ(output->tail(summary), "\n1 difference in undamaged files: 1 breaking\n");
    summary = {.counts = {0, 2, 10}};
    EXPECT_EQ(output->tail(summary), "\n12 differences: 2 notable, 10 textual\n");
}

} // namespace
} // namespace refdoc_tests
