#include "tests/support/UnopenableFile.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tests/system/refdoc/check/RuleExamples.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <fmt/format.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <ostream>
#include <string_view>

namespace refdoc_tests {

void PrintTo(const RuleExample& example, std::ostream* stream) {
    *stream << example.rule;
}

namespace {

using docparser_tests::pathOf;
using docparser_tests::ZipBytes;
using docparser_tests::ZipEntryBytes;
using refdoc::check::Rule;
using refdoc::check::rules;

constexpr std::uintmax_t kMostBytes = std::uintmax_t{1} << 30;

class RuleTest : public CheckTest, public testing::WithParamInterface<RuleExample> {
protected:
    void write(const std::vector<ExampleFile>& files) {
        for (const char* folder : {"referenceapi", "referenceapi_lookup"})
            std::filesystem::create_directories(pathOf(path("help/docCatalog")) / folder);
        std::map<std::string, ZipBytes> packages;
        for (const ExampleFile& file : files) {
            const std::size_t separator = file.path.find('!');
            if (separator == file.path.npos)
                write(file);
            else
                packages[file.path.substr(0, separator)].entries.push_back(
                    {.name = file.path.substr(separator + 1),
                     .content = file.content,
                     .flags =
                         file.form == Form::Encrypted ? docparser_tests::kEncryptedFlag : kPlain});
        }
        for (const auto& [path, package] : packages)
            add(path, package.build());
        for (const ExampleFile& file : files) {
            if (file.form == Form::Missing)
                std::filesystem::remove(pathOf(path(file.path)));
        }
    }

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

private:
    static constexpr std::uint16_t kPlain = 0;

    void write(const ExampleFile& file) {
        switch (file.form) {
        case Form::Plain:
        case Form::Encrypted: add(file.path, file.content); break;
        case Form::ByteOrderMark: add(file.path, "\xEF\xBB\xBF" + file.content); break;
        case Form::OverLimit:
            add(file.path, "");
            std::filesystem::resize_file(pathOf(path(file.path)), kMostBytes + 1);
            break;
        case Form::Folder: std::filesystem::create_directories(pathOf(path(file.path))); break;
        case Form::Missing: break;
        case Form::Unopenable:
            std::filesystem::create_directories(pathOf(path(file.path)).parent_path());
            unopenable_.emplace(pathOf(path(file.path)));
            break;
        }
    }

    std::optional<docparser_tests::UnopenableFile> unopenable_;
};

TEST_P(RuleTest, ReportsItsExampleAndNothingElse) {
    write(GetParam().files);
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
