#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tests/system/refdoc/check/rules/RuleExamples.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <fmt/format.h>

#include <cstdlib>
#include <ostream>
#include <string_view>

namespace refdoc_tests {

void PrintTo(const RuleExample& example, std::ostream* stream) {
    *stream << example.rule;
}

namespace {

using refdoc::check::Rule;
using refdoc::check::rules;

class RuleTest : public CheckTest, public testing::WithParamInterface<RuleExample> {
protected:
    // Windows has locked files instead of links that lead nowhere.
    static std::string onThisSystem(std::string finding) {
#ifdef _WIN32
        const std::string_view link = "the file is a link to a file that does not exist";
        if (const std::size_t at = finding.find(link); at != finding.npos)
            finding.replace(at, link.size(),
                            "the file can't be read and is skipped: the file cannot be opened");
#endif
        return finding;
    }
};

TEST_P(RuleTest, ReportsItsExampleAndNothingElse) {
    const ExampleFolder folder(docparser_tests::pathOf(path()), GetParam().files);
    const std::string out = check({"."}).out;
    const std::size_t summary = out.rfind("\n1 ", out.rfind(" checked\n"));
    ASSERT_NE(summary, out.npos) << out;
    EXPECT_EQ(out.substr(0, summary), onThisSystem(GetParam().finding));
}

INSTANTIATE_TEST_SUITE_P(Rules, RuleTest, testing::ValuesIn(ruleExamples()), [](const auto& test) {
    std::string name = test.param.rule;
    std::ranges::replace(name, '-', '_');
    return name;
});

std::string_view remarkOn(Form form) {
    switch (form) {
    case Form::Plain: return "";
    case Form::ByteOrderMark: return " (with a byte-order mark)";
    case Form::OverLimit: return " (larger than 1 GiB)";
    case Form::Folder: return " (a folder)";
    case Form::Missing: return " (missing)";
    case Form::Unopenable: return " (a link to a file that does not exist)";
    case Form::Encrypted: return " (encrypted)";
    case Form::AtLimit: break; // not in an example of a rule
    }
    return "";
}

std::string indented(const std::string& text) {
    std::string result;
    for (const std::string& line : linesOf(text))
        result += "    " + line + '\n';
    return result;
}

// The part of docs/check.md about the rules.
std::string rulesPage() {
    std::string page = "| rule | severity | what is wrong |\n|---|---|---|\n";
    for (const Rule* rule : rules())
        page += fmt::format("| [{0}](#{0}) | {1} | {2} |\n", rule->name, toWord(rule->severity),
                            rule->summary);
    for (const RuleExample& example : ruleExamples()) {
        const Rule* rule = refdoc::check::findRule(example.rule);
        page += fmt::format("\n### {}\n\n{}\n\n```\n", example.rule, rule->explanation);
        for (const ExampleFile& file : example.files)
            page += fmt::format("{}{}\n{}", file.path, remarkOn(file.form), indented(file.content));
        page += fmt::format("```\n\n```\n{}\n```\n", example.finding);
    }
    return page;
}

// docs/check.md, with another part about the rules.
std::string documentWith(const std::string& document, const std::string& rulesPart) {
    const std::string_view start =
        "<!-- rules: cmake --build build/dev --target update_rules -->\n";
    const std::size_t first = document.find(start) + start.size();
    const std::size_t last = document.find("<!-- end of rules -->");
    return document.substr(0, first) + rulesPart + document.substr(last);
}

TEST(RuleDocumentation, ShowsEachRuleWithItsExample) {
    std::vector<std::string_view> documented;
    for (const RuleExample& example : ruleExamples())
        documented.push_back(example.rule);
    std::vector<std::string_view> names;
    for (const Rule* rule : rules())
        names.push_back(rule->name);
    ASSERT_EQ(documented, names) << "RuleExamples.cpp has one example for each rule";

    std::ifstream stream(CHECK_PAGE, std::ios::binary);
    const std::string document{std::istreambuf_iterator<char>(stream), {}};
    const std::string updated = documentWith(document, rulesPage());
    if (std::getenv("UPDATE_CHECK_PAGE"))
        std::ofstream(CHECK_PAGE, std::ios::binary) << updated;
    else
        EXPECT_EQ(document, updated) << "cmake --build build/dev --target update_rules";
}

TEST(RuleDocumentation, HasDistinctNamesAndWholeSentences) {
    for (const Rule* rule : rules()) {
        EXPECT_EQ(refdoc::check::findRule(rule->name), rule);
        EXPECT_FALSE(rule->summary.ends_with('.')) << rule->name;
        EXPECT_TRUE(rule->explanation.ends_with('.')) << rule->name;
    }
    EXPECT_EQ(refdoc::check::findRule("no-such-rule"), nullptr);
}

class RuleOptionsTest : public CheckTest {};

TEST_F(RuleOptionsTest, RulesListsEachRule) {
    const Outcome outcome = check({"--rules"});
    EXPECT_EQ(outcome.status, 0);
    const std::vector<std::string> lines = linesOf(outcome.out);
    ASSERT_EQ(lines.size(), rules().size());
    EXPECT_EQ(lines[0], "malformed-json                   error    invalid JSON");
    EXPECT_EQ(lines[7],
              "unknown-key                      warning  the key has no meaning in this object");
}

TEST_F(RuleOptionsTest, ExplainPrintsSummaryAndExplanation) {
    const Rule& rule = *rules().back();
    EXPECT_EQ(check({"--explain", std::string(rule.name)}),
              (Outcome{0,
                       fmt::format("{} ({}): {}\n\n{}\n", rule.name, toWord(rule.severity),
                                   rule.summary, rule.explanation),
                       ""}));
}

} // namespace
} // namespace refdoc_tests
