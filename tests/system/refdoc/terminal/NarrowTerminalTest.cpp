// The layout of records and pages on terminals of several widths, in several scripts.

#include "tests/system/refdoc/RefdocTest.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;

constexpr std::size_t kWidths[] = {40, 60, 80, 120};

// The parts of a line between gaps of two or more spaces, which are the cells of a table.
std::vector<std::string> cellsOf(const std::string& line) {
    std::vector<std::string> cells;
    for (std::size_t start = line.find_first_not_of(' '); start != line.npos;) {
        const std::size_t gap = std::min(line.find("  ", start), line.size());
        cells.push_back(line.substr(start, gap - start));
        start = line.find_first_not_of(' ', gap);
    }
    return cells;
}

void expectFits(const std::string& text, std::size_t width) {
    for (const std::string& line : linesOf(text))
        EXPECT_LE(refdoc::displayWidth(line), width) << line;
}

// No line of a cell begins with closing punctuation or small kana, or ends with opening
// punctuation.
void expectKinsoku(const std::string& text) {
    for (const std::string& line : linesOf(text)) {
        for (const std::string& cell : cellsOf(line)) {
            for (const char* character : {"。", "、", "」", "』", "）", "】", "！", "？", "・",
                                          "ー", "っ", "ャ", "ッ", ")"})
                EXPECT_FALSE(cell.starts_with(character)) << line;
            for (const char* character : {"「", "『", "（", "【", "("})
                EXPECT_FALSE(cell.ends_with(character)) << line;
        }
    }
}

class NarrowTerminalTest : public RefdocTest {
protected:
    struct Record {
        std::string name;
        std::string href;
        std::string purpose;
    };

    NarrowTerminalTest() {
        addManifest(R"({"topLevelProducts": [{"shortName": "orchard"}]})");
        addLookup("Orchard", section("orchard", itemsOf(records)));
        addLookup("Cellar", section("cellar", itemsOf({{"graft.wine", "ref/graft.wine.html",
                                                        "Mix the graft of one vine"}})));
        std::string descriptions;
        for (const Record& record : records)
            descriptions += record.purpose + " ";
        addResource("Orchard",
                    section("orchard", R"json({"href": "ref/graft.html", "refpurpose": ")json" +
                                           descriptions + R"json(", "description": ")json" +
                                           descriptions + descriptions + R"json(",
                            "refentity": [{"type": "function", "name": "graft"},
                                          {"type": "function", "name": "cleft"}],
                            "inputs": [{"name": "scion", "purpose": ")json" +
                                           descriptions + R"json(", "htmlid": "x",
                                        "value": ["whip", "「舌接ぎ」"]}]})json"));
    }

    static std::string itemsOf(const std::vector<Record>& records) {
        std::string items;
        for (const Record& record : records)
            items += (items.empty() ? "" : ",") + (R"({"name": ")" + record.name) +
                     R"(", "href": ")" + record.href + R"(", "refpurpose": ")" + record.purpose +
                     "\"}";
        return items;
    }

    std::string at(std::size_t width, std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"--color", "never", "--no-pager"});
        return runAtTerminal(width, arguments).out;
    }

    const std::vector<Record> records{
        {"graft", "ref/graft.html", "Join the scion to the rootstock and wait until it grows"},
        {"graft.接ぎ木", "ref/graft.ja.html",
         "「接ぎ木」とは、二本の木をつなぐこと（ショート・カットではない）です。ちょっと待って！"},
        {"graftไทย", "ref/graft.th.html", "การต่อกิ่งไม้สองต้นเข้าด้วยกันแล้วรอจนกว่ามันจะโต"},
        {"graft🌳", "ref/graft.emoji.html",
         "👩\u200d🌾🌳👍🏽🇩🇪🇯🇵🌳"
         "👩\u200d🌾🌳👍🏽🇩🇪🇯🇵🌳"
         "👩\u200d🌾🌳👍🏽🇩🇪🇯🇵🌳"}};
};

TEST_F(NarrowTerminalTest, NoLineIsWiderThanTheTerminal) {
    for (std::size_t width = 20; width <= 120; width += 4) {
        SCOPED_TRACE(width);
        expectFits(at(width, {"lookup"}), width);
        expectFits(at(width, {"search", "graft"}), width);
        expectFits(at(width, {"show", "Orchard"}), width);
    }
}

TEST_F(NarrowTerminalTest, ClosingPunctuationDoesNotBeginALineAndOpeningPunctuationDoesNotEndIt) {
    for (std::size_t width = 24; width <= 120; width += 3) {
        SCOPED_TRACE(width);
        expectKinsoku(at(width, {"lookup"}));
        expectKinsoku(at(width, {"show", "Orchard"}));
    }
}

TEST_F(NarrowTerminalTest, ProductsNamesAndLinksAreNeverCut) {
    for (const std::size_t width : kWidths) {
        SCOPED_TRACE(width);
        const std::string lookup = at(width, {"lookup"});
        const std::string search = at(width, {"search", "graft"});
        for (const Record& record : records) {
            EXPECT_THAT(lookup, HasSubstr("  " + record.name + " "));
            EXPECT_THAT(search, HasSubstr("  " + record.name + " "));
            EXPECT_THAT(search, HasSubstr(record.href));
        }
        EXPECT_THAT(search, HasSubstr("Orchard"));
        EXPECT_THAT(search, HasSubstr("ref/graft.wine.html"));
        EXPECT_THAT(search, HasSubstr("Cellar"));
    }
}

TEST_F(NarrowTerminalTest, TitleKeepsNamesBesideTheirTypes) {
    for (std::size_t width = 20; width <= 40; ++width) {
        for (const std::string& line : linesOf(at(width, {"show", "Orchard"})))
            EXPECT_FALSE(line.starts_with("(function")) << width;
    }
    EXPECT_THAT(at(23, {"show", "Orchard"}), HasSubstr("\ngraft,\ncleft (functions)\n---"));
}

TEST_F(NarrowTerminalTest, At120ColumnsRecordsAreLines) {
    EXPECT_EQ(at(120, {"search", "graft"}),
              R"(Installed
  graft         function  Join the scion to the rootstock and wait until it grows          Orchard  ref/graft.html
  graft.接ぎ木  function  「接ぎ木」とは、二本の木をつなぐこと（ショート・カットではない…  Orchard  ref/graft.ja.html
  graftไทย      function  การต่อกิ่งไม้สองต้นเข้าด้วยกันแล้วรอจนกว่ามันจะโต                           Orchard  ref/graft.th.html
  graft🌳       function  👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳                             Orchard  ref/graft.emoji.html

Not installed
  graft.wine    function  Mix the graft of one vine                                        Cellar   ref/graft.wine.html
)");
}

TEST_F(NarrowTerminalTest, At80ColumnsPurposesAreCut) {
    EXPECT_EQ(at(80, {"search", "graft"}),
              R"(Installed
  graft         function  Join the scion to the…   Orchard  ref/graft.html
  graft.接ぎ木  function  「接ぎ木」とは、二本の…  Orchard  ref/graft.ja.html
  graftไทย      function  การต่อกิ่งไม้สองต้นเข้าด้วยกัน…  Orchard  ref/graft.th.html
  graft🌳       function  👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵…  Orchard  ref/graft.emoji.html

Not installed
  graft.wine    function  Mix the graft of one v…  Cellar   ref/graft.wine.html
)");
}

TEST_F(NarrowTerminalTest, At60ColumnsRecordsContinueOnASecondLine) {
    EXPECT_EQ(at(60, {"search", "graft"}),
              R"(Installed
  graft         function  Join the scion to the ro…  Orchard
      ref/graft.html
  graft.接ぎ木  function  「接ぎ木」とは、二本の木…  Orchard
      ref/graft.ja.html
  graftไทย      function  การต่อกิ่งไม้สองต้นเข้าด้วยกันแล้…  Orchard
      ref/graft.th.html
  graft🌳       function  👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳…  Orchard
      ref/graft.emoji.html

Not installed
  graft.wine    function  Mix the graft of one vine  Cellar
      ref/graft.wine.html
)");
}

TEST_F(NarrowTerminalTest, At40ColumnsRecordsContinueOnFurtherLines) {
    EXPECT_EQ(at(40, {"search", "graft"}),
              R"(Installed
  graft         function
      Join the scion to the ro…  Orchard
      ref/graft.html
  graft.接ぎ木  function
      「接ぎ木」とは、二本の木…  Orchard
      ref/graft.ja.html
  graftไทย      function
      การต่อกิ่งไม้สองต้นเข้าด้วยกันแล้…  Orchard
      ref/graft.th.html
  graft🌳       function
      👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳…  Orchard
      ref/graft.emoji.html

Not installed
  graft.wine    function
      Mix the graft of one vine  Cellar
      ref/graft.wine.html
)");
}

TEST_F(NarrowTerminalTest, Below40ColumnsEachFieldIsALine) {
    EXPECT_EQ(at(39, {"search", "graft"}),
              R"(Installed
  graft
      function
      Join the scion to the rootstock
      and wait until it grows
      Orchard
      ref/graft.html
  graft.接ぎ木
      function
      「接ぎ木」とは、二本の木をつなぐ
      こと（ショート・カットではない）
      です。ちょっと待って！
      Orchard
      ref/graft.ja.html
  graftไทย
      function
      การต่อกิ่งไม้สองต้นเข้าด้วยกันแล้วรอจนกว่ามั
      นจะโต
      Orchard
      ref/graft.th.html
  graft🌳
      function
      👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽🇩🇪🇯🇵🌳👩‍🌾🌳👍🏽
      🇩🇪🇯🇵🌳
      Orchard
      ref/graft.emoji.html

Not installed
  graft.wine
      function
      Mix the graft of one vine
      Cellar
      ref/graft.wine.html
)");
}

TEST_F(NarrowTerminalTest, Below40ColumnsArgumentsHaveOneFieldPerLine) {
    EXPECT_THAT(at(39, {"show", "Orchard"}),
                HasSubstr("    scion\n        Purpose: Join the scion"));
    EXPECT_THAT(at(39, {"show", "Orchard"}), HasSubstr("\n        Values: whip, 「舌接ぎ」\n"));
    EXPECT_THAT(at(40, {"show", "Orchard"}), HasSubstr("    Name   Purpose"));
}

} // namespace
} // namespace refdoc_tests
