#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tests/system/refdoc/check/rules/RuleCases.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/value.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string_view>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using refdoc::check::Rule;
using refdoc::check::rules;

std::vector<RuleCase> ruleCases() {
    std::vector<RuleCase> cases = textRuleCases();
    std::ranges::move(fileRuleCases(), std::back_inserter(cases));
    return cases;
}

std::vector<std::string> ruleNames() {
    std::vector<std::string> names;
    for (const Rule* rule : rules())
        names.emplace_back(rule->name);
    return names;
}

// "lookup/A.zip!A.json:2:1"
std::string placeOf(const json::value& finding) {
    std::string place(finding.at("path").as_string());
    if (const json::string* entry = finding.at("entry").if_string())
        place.append("!").append(*entry);
    if (!finding.at("line").is_null())
        place += fmt::format(":{}:{}", finding.at("line").to_number<int>(),
                             finding.at("column").to_number<int>());
    return place;
}

// Replaces the start of a text.
std::string replaced(std::string text, std::string_view from, std::string_view to) {
    return text.starts_with(from) ? text.replace(0, from.size(), to) : text;
}

class RuleCaseTest : public CheckTest, public testing::WithParamInterface<std::string> {
protected:
    // Returns where the rule is reported.
    std::string placesOf(const std::string& rule, const std::vector<ExampleFile>& files) {
        const std::string folder = fmt::format("case{}", ++count_);
        std::vector<ExampleFile> written = files;
        for (ExampleFile& file : written)
            file.path = replaced(replaced(file.path, "full/", kFull), "lookup/", kLookup);
        const ExampleFolder example(docparser_tests::pathOf(path(folder)), written);
        std::string places;
        for (const json::value& finding :
             documents(check({folder, "--jsonl", "--show-consequences"}).out)) {
            if (finding.at("rule").as_string() != std::string_view(rule))
                continue;
            const std::string place = replaced(placeOf(finding), folder + '/', "");
            places.append(places.empty() ? "" : " ")
                .append(replaced(replaced(place, kFull, "full/"), kLookup, "lookup/"));
        }
        return places;
    }

private:
    static constexpr std::string_view kFull = "help/docCatalog/referenceapi/";
    static constexpr std::string_view kLookup = "help/docCatalog/referenceapi_lookup/";

    int count_ = 0;
};

TEST_P(RuleCaseTest, IsReportedExactlyWhereItIsViolated) {
    for (const RuleCase& row : ruleCases()) {
        if (row.rule == GetParam()) {
            EXPECT_EQ(placesOf(row.rule, row.files), row.places)
                << testing::PrintToString(row.files.back().path) << '\n'
                << row.files.back().content;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rules, RuleCaseTest, testing::ValuesIn(ruleNames()), [](const auto& test) {
    std::string name = test.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

// Rules about folders, about the manifest, and about what only full resources have.
const std::set<std::string> kNotInEntries = {
    "misnamed-folder",     "no-lookup-folder", "unreadable-file",
    "not-a-file",          "shadowed-file",    "unreadable-package",
    "page-without-lookup", "broken-link",      "installed-without-documentation"};
const std::set<std::string> kNotInTranslations = {"misnamed-folder", "no-lookup-folder",
                                                  "installed-without-documentation"};

TEST(RuleCases, CoverEachRuleInEachFormat) {
    std::map<std::string, std::set<CaseType>> types;
    for (const RuleCase& row : ruleCases())
        types[row.rule].insert(row.types.begin(), row.types.end());
    for (const std::string& rule : ruleNames()) {
        std::set<CaseType> expected = {CaseType::Negative, CaseType::Boundary};
        if (!kNotInEntries.contains(rule))
            expected.insert(CaseType::Entry);
        if (!kNotInTranslations.contains(rule))
            expected.insert(CaseType::Translation);
        EXPECT_EQ(types[rule], expected) << rule;
    }
}

} // namespace
} // namespace refdoc_tests
