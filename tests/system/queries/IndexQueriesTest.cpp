#include "docparser/Queries.hpp"
#include "tests/system/SystemTest.hpp"

#include <string>
#include <tuple>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::docparser;

TEST(MatchNameTest, ReturnsTheBestMatch) {
    const std::vector<std::tuple<std::u16string, std::u16string, std::optional<NameMatch>>> cases{
        {u"graft", u"graft", NameMatch::Exact},
        {u"graft", u"grafting", NameMatch::Prefix},
        {u"graft", u"regraft", NameMatch::Substring},
        {u"graft", u"Graft", NameMatch::Near},
        {u"graft", u"gratf", NameMatch::Near},
        {u"graft", u"graf", NameMatch::Near},
        {u"graft", u"graph", std::nullopt},
        {u"graft", u"gra", std::nullopt},
        {u"grafts", u"graf", NameMatch::Near},
        {u"gr", u"ga", std::nullopt},
        {u"gra", u"gro", NameMatch::Near},
        {u"", u"graft", std::nullopt},
        {u"", u"", std::nullopt},
        {u"graft", u"", std::nullopt},
        {u"\u6728", u"\u679C\u6728", NameMatch::Substring}};
    for (const auto& [text, name, match] : cases)
        EXPECT_EQ(matchName(text, name), match)
            << testing::PrintToString(text) << ' ' << testing::PrintToString(name);
}

TEST(EditDistanceTest, CountsEdits) {
    const std::vector<std::tuple<std::u16string, std::u16string, std::size_t>> cases{
        {u"", u"", 0},           {u"graft", u"graft", 0},
        {u"graft", u"Graft", 1}, {u"graft", u"grafts", 1},
        {u"graft", u"gaft", 1},  {u"graft", u"garft", 1},
        {u"graft", u"tfarg", 4}, {u"", u"abc", 3},
        {u"ab", u"ba", 1},       {u"kitten", u"sitting", 3},
        {u"ca", u"abc", 3},      {u"graft.a", u"graft.bc", 2},
        {u"abcd", u"badc", 2}};
    for (const auto& [left, right, distance] : cases) {
        EXPECT_EQ(editDistance(left, right, 5), distance) << testing::PrintToString(right);
        EXPECT_EQ(editDistance(right, left, 5), distance) << testing::PrintToString(right);
    }
}

TEST(EditDistanceTest, StopsAtLimit) {
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 3), 3U);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 2), 3U);
    EXPECT_EQ(editDistance(u"kitten", u"sitting", 1), 2U);
    EXPECT_EQ(editDistance(u"a", u"b", 0), 1U);
    EXPECT_EQ(editDistance(std::u16string(100000, u'a'), std::u16string(100001, u'b'), 3), 4U);
}

// An index with one installed section, "orchard", and one that is not installed, "cellar".
class IndexQueriesTest : public SystemTest {
protected:
    IndexQueriesTest() {
        host->install({"orchard"});
        addLookup("Orchard.json", ResourceText("orchard")
                                      .add(lookupItem("graft", "graft.html", "Join"))
                                      .add(lookupItem("graft", "tree.graft.html", "Join a tree"))
                                      .add(lookupItem("regraft", "regraft.html", "Join again"))
                                      .add(lookupItem("craft", "craft.html", "Make"))
                                      .str());
        addLookup("Cellar.json", ResourceText("cellar")
                                     .add(lookupItem("graft", "cellar.html", "Join barrels"))
                                     .add(lookupItem("grafting", "grafting.html", "Joining"))
                                     .add(lookupItem("press", "press.html", "Press"))
                                     .str());
        index = DocResourceParser::getResourceLookupFiles();
    }

    // "SECTION LINK" for each entry; in brackets if it is not installed.
    static std::vector<std::string> described(const std::vector<IndexEntry>& entries) {
        std::vector<std::string> lines;
        for (const IndexEntry& entry : entries) {
            const std::string line = toUtf8(*entry.section) + ' ' + toUtf8(entry.record->getHref());
            lines.push_back(entry.isInstalled ? line : '[' + line + ']');
        }
        return lines;
    }

    std::vector<std::string> find(const std::u16string& text, NameMatch loosest) const {
        return described(findNames(index, text, loosest));
    }

    LookupIndex index;
};

TEST_F(IndexQueriesTest, VisitsInstalledSectionsFirst) {
    std::vector<IndexEntry> entries;
    forEachEntry(index, [&](const IndexEntry& entry) { entries.push_back(entry); });
    EXPECT_EQ(described(entries),
              (std::vector<std::string>{"orchard craft.html", "orchard graft.html",
                                        "orchard tree.graft.html", "orchard regraft.html",
                                        "[cellar cellar.html]", "[cellar grafting.html]",
                                        "[cellar press.html]"}));
    EXPECT_EQ(entries.front().header->getProduct(), u"Orchard");
    EXPECT_EQ(entries.back().header->getProduct(), u"Cellar");
}

TEST_F(IndexQueriesTest, FindsNamesUpToTheLoosestMatch) {
    EXPECT_EQ(find(u"graft", NameMatch::Exact),
              (std::vector<std::string>{"orchard graft.html", "orchard tree.graft.html",
                                        "[cellar cellar.html]"}));
    EXPECT_EQ(find(u"graft", NameMatch::Prefix),
              (std::vector<std::string>{"orchard graft.html", "orchard tree.graft.html",
                                        "[cellar cellar.html]", "[cellar grafting.html]"}));
    EXPECT_EQ(find(u"graft", NameMatch::Substring),
              (std::vector<std::string>{"orchard graft.html", "orchard tree.graft.html",
                                        "[cellar cellar.html]", "[cellar grafting.html]",
                                        "orchard regraft.html"}));
    EXPECT_EQ(find(u"graft", NameMatch::Near).back(), "orchard craft.html");
    EXPECT_EQ(find(u"zebra", NameMatch::Near), std::vector<std::string>());
    EXPECT_EQ(find(u"", NameMatch::Near), std::vector<std::string>());
}

TEST_F(IndexQueriesTest, EntryLeadsToTheFullRecord) {
    addApi("Cellar.json", resourceText("cellar", {{"cellar.html", "Join barrels of oak"}}));
    const IndexEntry entry = findNames(index, u"graft", NameMatch::Exact).back();
    EXPECT_EQ(getItem(entry.header->getProduct(), entry.record->getHref()),
              record(u"cellar.html", u"Join barrels of oak"));
}

} // namespace
} // namespace docparser_tests
