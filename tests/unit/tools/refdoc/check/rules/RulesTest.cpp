#include "tools/refdoc/check/rules/Rules.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

namespace refdoc_tests {
namespace {

using namespace refdoc::check;

TEST(RulesTest, HaveDifferentNamesAndWholeSentences) {
    std::set<std::string_view> names;
    for (const Rule& rule : rules()) {
        EXPECT_TRUE(names.insert(rule.name).second) << rule.name;
        EXPECT_EQ(findRule(rule.name), &rule);
        EXPECT_FALSE(rule.summary.ends_with('.')) << rule.name;
        EXPECT_TRUE(rule.explanation.ends_with('.')) << rule.name;
    }
    EXPECT_EQ(findRule("no-such-rule"), nullptr);
}

TEST(RulesTest, AreDocumentedInTheirOrder) {
    std::ifstream stream(std::string(DOCS_FOLDER) + "/check.md");
    const std::string page{std::istreambuf_iterator<char>(stream), {}};
    std::string table;
    for (const Rule& rule : rules())
        table +=
            fmt::format("| `{}` | {} | {} |\n", rule.name, toWord(rule.severity), rule.summary);
    EXPECT_THAT(page, testing::HasSubstr("|---|---|---|\n" + table + "\n"));
}

} // namespace
} // namespace refdoc_tests
