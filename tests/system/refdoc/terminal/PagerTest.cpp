#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Variables = std::map<std::string, std::string>;

class PagerTest : public RefdocTest {
protected:
    static constexpr int kManyLines = 9000; // more than a pipe holds

    PagerTest() {
        addResource("Short", section("short", R"({"href": "a.html", "refpurpose": "b"})"));
        std::string description;
        for (int line = 0; line < kManyLines; ++line)
            description += "line " + std::to_string(line) + "\\n";
        addResource("Long", section("long", R"({"href": "a.html", "refpurpose": "b",
                                                "description": ")" +
                                                description + "\"}"));
    }

    Outcome page(std::vector<std::string> arguments, Variables variables) const {
        return runAtTerminal(80, std::move(arguments), {.variables = std::move(variables)});
    }
};

TEST_F(PagerTest, LongOutputOnATerminalGoesThroughPager) {
    const Outcome outcome = page({"show", "Long"}, {{"PAGER", "sed -e 's/^/| /'"}});
    EXPECT_THAT(outcome.out, HasSubstr("|   line 0\n|   line 1\n"));
    EXPECT_THAT(outcome.out, EndsWith("|   line " + std::to_string(kManyLines - 1) + "\n| \n"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
}

TEST_F(PagerTest, OutputThatFitsTheTerminalIsNotPaged) {
    const std::string out = page({"show", "Short"}, {{"PAGER", "sed -e 's/^/| /'"}}).out;
    EXPECT_THAT(out, HasSubstr("a.html"));
    EXPECT_THAT(out, Not(HasSubstr("| ")));
}

TEST_F(PagerTest, JsonAndPipesAreNotPaged) {
    const Variables pager{{"PAGER", "echo paged; cat >/dev/null"}};
    EXPECT_THAT(page({"show", "Long"}, pager).out, HasSubstr("paged"));
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"show", "Long", "--no-pager"}, {"show", "Long", "--json"}})
        EXPECT_THAT(page(arguments, pager).out, Not(HasSubstr("paged")));
    EXPECT_THAT(run({"show", "Long"}, {.variables = pager}).out, Not(HasSubstr("paged")));
}

TEST_F(PagerTest, EmptyPagerOrCatMeansNoPager) {
    const std::string plain = page({"show", "Long", "--no-pager"}, {}).out;
    for (const char* pager : {"", " ", "cat", " cat "})
        EXPECT_EQ(page({"show", "Long"}, {{"PAGER", pager}}).out, plain) << pager;
}

TEST_F(PagerTest, PagerMayEndEarly) {
    const Outcome outcome = page({"show", "Long"}, {{"PAGER", "head -n 1"}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_THAT(outcome.out, HasSubstr("long name"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("line 0")));
}

TEST_F(PagerTest, OutputIsPrintedIfThePagerIsMissing) {
    const Outcome outcome = page({"show", "Long"}, {{"PAGER", "/nowhere/pager"}});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.out, HasSubstr("line 0"));
}

TEST_F(PagerTest, StatusIsThatOfTheCommandNotOfThePager) {
    const Outcome outcome =
        page({"show", "Long", "a.html", "b.html"}, {{"PAGER", "cat >/dev/null; exit 5"}});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.err, StartsWith("refdoc: no item \"b.html\" in \"Long\""));
}

TEST_F(PagerTest, SetsLessOptionsUnlessTheyAreSet) {
    const std::string pager = "echo \"LESS is $LESS\"; cat >/dev/null";
    EXPECT_THAT(page({"show", "Long"}, {{"PAGER", pager}}).out, StartsWith("LESS is FRX\n"));
    EXPECT_THAT(page({"show", "Long"}, {{"PAGER", pager}, {"LESS", "-i"}}).out,
                StartsWith("LESS is -i\n"));
    EXPECT_THAT(page({"show", "Long"}, {{"PAGER", pager}, {"LESS", ""}}).out,
                StartsWith("LESS is \n"));
}

} // namespace
} // namespace refdoc_tests
