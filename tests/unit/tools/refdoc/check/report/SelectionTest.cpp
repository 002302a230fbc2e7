#include "tools/refdoc/check/report/Selection.hpp"

#include "tests/unit/tools/refdoc/check/report/Findings.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace refdoc_tests {
namespace {

using namespace refdoc::check;
using testing::ElementsAre;

constexpr Rule kError{"an-error", Severity::Error, "", ""};
constexpr Rule kWarning{"a-warning", Severity::Warning, "", ""};
constexpr Rule kOther{"other-warning", Severity::Warning, "", ""};
constexpr Rule kNote{"a-note", Severity::Note, "", ""};

// "file message", with the places and files that are grouped with it.
std::vector<std::string> textsOf(const std::vector<ReportedFinding>& findings) {
    std::vector<std::string> texts;
    for (const ReportedFinding& finding : findings) {
        texts.push_back(finding.location.file->path + ' ' + finding.message);
        if (finding.morePlaces > 0)
            texts.back() += fmt::format(" +{} in {}", finding.morePlaces, finding.files);
    }
    return texts;
}

class SelectionTest : public testing::Test {
protected:
    void begin(const std::string& path) { maker_.begin(path); }

    void add(const Rule& rule, const std::string& message, const std::string& cause = {}) {
        findings_.push_back(maker_.make(rule, message, cause));
    }

    FindingMaker maker_;
    std::vector<ReportedFinding> findings_;
};

TEST_F(SelectionTest, MoreThanThreeFindingsOfOneCauseBecomeOne) {
    begin("a");
    add(kWarning, "often");
    add(kWarning, "thrice");
    add(kWarning, "often");
    begin("b");
    add(kWarning, "thrice");
    add(kWarning, "often");
    add(kWarning, "once");
    begin("c");
    add(kWarning, "often");
    add(kWarning, "thrice");
    EXPECT_THAT(textsOf(groupRepeated(findings_)),
                ElementsAre("a often +3 in 3", "a thrice", "b thrice", "b once", "c thrice"));
}

TEST_F(SelectionTest, CauseCountsInsteadOfTheMessage) {
    begin("a");
    for (const char* message : {"1", "2", "3", "4"})
        add(kWarning, message, "cause");
    EXPECT_THAT(textsOf(groupRepeated(findings_)), ElementsAre("a 1 +3 in 1"));
}

TEST_F(SelectionTest, FindingsOfDifferentRulesAreNeverGrouped) {
    begin("a");
    for (const Rule* rule : {&kWarning, &kOther, &kWarning, &kOther})
        add(*rule, "same");
    EXPECT_EQ(groupRepeated(findings_).size(), 4U);
}

TEST_F(SelectionTest, KeepsErrorsThenEachRuleInTurn) {
    begin("a");
    add(kNote, "note 1");
    add(kWarning, "warning 1");
    add(kWarning, "warning 2");
    add(kOther, "other 1");
    add(kError, "error 1");
    add(kError, "error 2");
    const auto keep = [&](std::size_t count) {
        return textsOf(keepMostImportant(findings_, count));
    };
    EXPECT_THAT(keep(1), ElementsAre("a error 1"));
    EXPECT_THAT(keep(2), ElementsAre("a error 1", "a error 2"));
    EXPECT_THAT(keep(4), ElementsAre("a warning 1", "a other 1", "a error 1", "a error 2"));
    EXPECT_THAT(keep(5),
                ElementsAre("a note 1", "a warning 1", "a other 1", "a error 1", "a error 2"));
    EXPECT_EQ(keep(6), textsOf(findings_));
    EXPECT_THAT(keep(0), ElementsAre());
}

TEST_F(SelectionTest, StopsAtTheFirstFindingThatExceedsTheBudget) {
    begin("a");
    add(kError, "1");
    add(kWarning, "333");
    add(kNote, "1");
    const auto costOf = [](const ReportedFinding& finding) { return finding.message.size(); };
    EXPECT_THAT(textsOf(keepMostImportant(findings_, 3, costOf)), ElementsAre("a 1"));
    EXPECT_THAT(textsOf(keepMostImportant(findings_, 4, costOf)), ElementsAre("a 1", "a 333"));
}

} // namespace
} // namespace refdoc_tests
