#include "tests/system/refdoc/check/CheckTest.hpp"

#include <fmt/format.h>

#include <regex>
#include <set>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

// Items with keys that do not exist. Each is the only one of its name if it has a number.
std::string items(std::size_t count, const std::string& key, bool hasNumber = false) {
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        text += fmt::format("{}{{\"href\": \"{}.html\", \"refpurpose\": \"\", \"{}{}\": 1}}",
                            index == 0 ? "" : ",\n", index, key,
                            hasNumber ? std::to_string(index) : "");
    return text;
}

class LargeReportTest : public CheckTest {};

TEST_F(LargeReportTest, RepeatedFindingsAreOneWithACount) {
    addResource("A", section("a", items(50, "unknown")));
    addResource("B", section("b", items(6, "unknown")));
    EXPECT_THAT(linesOf(check({"help"}).out),
                ElementsAre(HasSubstr("A.json:1:144: warning: unknown key \"unknown\""),
                            "    and 55 more places, 2 files in total",
                            "56 warnings in 2 files; 2 files checked"));
}

TEST_F(LargeReportTest, MaxZeroPrintsEachFinding) {
    addResource("A", section("a", items(300, "unknown")));
    const std::vector<std::string> lines = linesOf(check({"help", "--max", "0"}).out);
    EXPECT_EQ(lines.size(), 301U);
    EXPECT_THAT(lines.back(), "300 warnings in 1 file; 1 file checked");
}

TEST_F(LargeReportTest, MaxLimitsTheFindingsOfEachFormat) {
    addResource("A", section("a", items(5, "unknown", /*hasNumber=*/true)));
    addResource("B", section("b", R"({"href": "b.html"})"));
    EXPECT_THAT(linesOf(check({"help", "--max", "2"}).out),
                ElementsAre(HasSubstr("\"unknown0\""), HasSubstr("[missing-key]"),
                            "4 findings not shown; --max 0 shows all, --statistics counts them",
                            "1 error, 5 warnings in 2 files; 2 files checked"));
    EXPECT_EQ(linesOf(check({"help", "--jsonl", "--max=2"}).out).size(), 2U);

    const json::value report = document(check({"help", "--json", "--max=2"}).out);
    EXPECT_EQ(report.at("findings").as_array().size(), 2U);
    EXPECT_EQ(report.at_pointer("/summary/warnings"), 5);
    EXPECT_EQ(report.at("statistics"), document(R"([
        {"rule": "missing-key", "product": "B", "findings": 1},
        {"rule": "unknown-key", "product": "A", "findings": 5}])"));

    const json::value run =
        document(check({"help", "--sarif", "--max=2"}).out).at_pointer("/runs/0");
    EXPECT_EQ(run.at("results").as_array().size(), 2U);
    EXPECT_EQ(run.at_pointer("/invocations/0/toolExecutionNotifications/0/message/text"),
              "4 of 6 findings are left out because the report is limited to 2 results.");
}

TEST_F(LargeReportTest, MaxMustBeANumber) {
    EXPECT_EQ(check({"help", "--max", "many"}),
              (Outcome{2, "",
                       "refdoc: --max must be a number, not \"many\"; see refdoc check --help\n"}));
}

TEST_F(LargeReportTest, JsonHasEachFindingByDefault) {
    addResource("A", section("a", items(300, "unknown")));
    EXPECT_EQ(document(check({"help", "--json"}).out).at("findings").as_array().size(), 300U);
    EXPECT_EQ(linesOf(check({"help", "--jsonl"}).out).size(), 300U);
    EXPECT_EQ(
        document(check({"help", "--sarif"}).out).at_pointer("/runs/0/results").as_array().size(),
        300U);
}

// 227 products in five languages, with unknown keys, missing translations, broken links and items
// that can't be found.
class LargeTreeTest : public LargeReportTest {
protected:
    static constexpr int kProducts = 227;

    LargeTreeTest() {
        for (int product = 0; product < kProducts; ++product) {
            for (const char* suffix : {"", "_de", "_fr", "_ja", "_zh"})
                addProduct(fmt::format("Product{}", product), suffix);
        }
    }

    Outcome checkTree(std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"help", "--langs", "en,de,fr,ja,zh"});
        return check(std::move(arguments));
    }

    static constexpr std::size_t kMostLines = 200;

private:
    void addProduct(const std::string& name, const std::string& suffix) {
        addResource(name + suffix, section(name, items(3, "unknown") + "," + items(1, name) +
                                                     R"(,{"href": "g.html", "refpurpose": "",
                                           "refentity": [{"name": "g"}],
                                           "seealso": [{"url": "gone.html", "name": ""}]})"));
        const std::string record = R"({"name": "g", "href": "{}.html", "refpurpose": ""})";
        const auto withHref = [&](const char* href) {
            return std::string(record).replace(record.find("{}"), 2, href);
        };
        addLookup(
            name + suffix,
            section(name, suffix.empty() ? withHref("0") + "," + withHref("none") : withHref("0")));
    }
};

TEST_F(LargeTreeTest, HasAtMost200LinesByDefault) {
    const std::vector<std::string> all = linesOf(checkTree({"--max", "0"}).out);
    const std::vector<std::string> lines = linesOf(checkTree({}).out);
    EXPECT_GT(all.size(), 5000U);
    EXPECT_LE(lines.size(), kMostLines);
    EXPECT_GT(lines.size(), kMostLines - 5);
    EXPECT_EQ(lines.back(), all.back());
}

TEST_F(LargeTreeTest, ShowsEachRule) {
    const auto rulesIn = [](const std::string& text) {
        std::set<std::string> rules;
        for (const std::string& line : linesOf(text)) {
            if (std::smatch match; std::regex_search(line, match, std::regex("\\[[a-z-]+\\]$")))
                rules.insert(match.str());
        }
        return rules;
    };
    const std::set<std::string> rules = rulesIn(checkTree({}).out);
    EXPECT_EQ(rules, rulesIn(checkTree({"--max", "0"}).out));
    EXPECT_GE(rules.size(), 4U);
}

TEST_F(LargeTreeTest, StatisticsCountEachRuleByProduct) {
    const std::vector<std::string> lines = linesOf(checkTree({"--statistics"}).out);
    EXPECT_LE(lines.size(), kMostLines);
    EXPECT_THAT(lines[0], "   4540  unknown-key");
    EXPECT_THAT(lines[1], "     20    Product0");
    EXPECT_THAT(lines.back(), HasSubstr(" warnings"));
    EXPECT_THAT(lines, testing::Contains(HasSubstr(" more products")));
    EXPECT_THAT(checkTree({"--statistics", "--max", "0"}).out, Not(HasSubstr("more products")));
    EXPECT_THAT(checkTree({"--statistics", "--max", "1"}).out,
                HasSubstr("   4540  unknown-key\n"
                          "     20    Product0\n"
                          "   4520    226 more products\n"));
}

class StatisticsOptionTest : public CheckTest {};

TEST_F(StatisticsOptionTest, FilesOfNoProductAreCounted) {
    add("installation.json", R"({"unknown": 1})");
    addResource("A_de", section("a", items(2, "unknown")));
    add("help/docCatalog/referenceapi_lookup/A.JSON", "{}");
    EXPECT_EQ(check({".", "--langs", "en,de", "--statistics"}),
              (Outcome{1,
                       "      3  unknown-key\n"
                       "      2    A\n"
                       "      1    (no product)\n"
                       "      1  extension-case\n"
                       "      1    A\n"
                       "1 error, 3 warnings in 3 files; 2 files checked\n",
                       ""}));
}

TEST_F(StatisticsOptionTest, IsForTextAndJson) {
    addResource("A", section("a", items(1, "unknown")));
    EXPECT_EQ(check({"help", "--statistics", "--json"}), check({"help", "--json"}));
    for (const std::string format : {"--jsonl", "--sarif"})
        EXPECT_EQ(check({"help", "--statistics", format}),
                  (Outcome{2, "",
                           "refdoc: --statistics and " + format +
                               " cannot be combined; see refdoc check --help\n"}));
}

TEST_F(StatisticsOptionTest, WithoutFindingsOnlyTheSummaryIsPrinted) {
    addResource("A", section("a", ""));
    EXPECT_EQ(check({"help", "--statistics"}),
              (Outcome{0, "1 file checked, no problems found\n", ""}));
}

} // namespace
} // namespace refdoc_tests
