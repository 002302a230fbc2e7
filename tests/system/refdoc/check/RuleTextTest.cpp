#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <fmt/format.h>

namespace refdoc_tests {
namespace {

using refdoc::check::Rule;
using refdoc::check::rules;
using testing::HasSubstr;

class RuleTextTest : public CheckTest {};

TEST_F(RuleTextTest, TheListHasALineForEachRule) {
    const Outcome outcome = check({"--rules"});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), rules().size());
    EXPECT_EQ(lines[0], "malformed-json                   error    invalid JSON");
    EXPECT_EQ(lines[5], "unknown-key                      warning  the key has no meaning where it "
                        "stands");
}

TEST_F(RuleTextTest, EachRuleIsExplained) {
    for (const Rule& rule : rules()) {
        const Outcome outcome = check({"--explain", std::string(rule.name)});
        EXPECT_EQ(outcome, (Outcome{0,
                                    fmt::format("{} ({}): {}\n\n{}\n", rule.name,
                                                refdoc::check::toWord(rule.severity), rule.summary,
                                                rule.explanation),
                                    ""}));
    }
}

} // namespace
} // namespace refdoc_tests
