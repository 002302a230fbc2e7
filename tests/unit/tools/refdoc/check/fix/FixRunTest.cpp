#include "tools/refdoc/check/fix/FixRun.hpp"

#include "tests/support/TemporaryFolder.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace refdoc::check {
namespace {

using testing::ElementsAre;
using testing::StartsWith;

// Runs on one file, "A.json", with a check that always finds the same.
class FixRunTest : public testing::Test {
protected:
    FixRunTest() { std::ofstream(file_) << "\"a\"\n"; }

    Answer run(Fix fix, FixMode mode) {
        const FixHost host{.check = [&] { return checked(fix); },
                           .onWritten =
                               [&](const FileChange& change) {
                                   written_.push_back(change.newFile.filename().string());
                               }};
        return fixFindings(host, PathNames(folder_.path()), mode, {});
    }

    std::string content() const {
        std::ifstream stream(file_);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static Fix replacement(std::string original) {
        return {.edits = {{.location = {.position = TextPlace()},
                           .original = std::move(original),
                           .replacement = "\"b\""}}};
    }

    docparser_tests::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "A.json";
    std::vector<std::string> written_;

private:
    CheckedFiles checked(const Fix& fix) const {
        const Rule& rule = *rules().front();
        ReportedFinding finding{
            .rule = &rule,
            .severity = rule.severity,
            .location = {.file = std::make_shared<ReportedFile>(ReportedFile{
                             .path = "A.json", .source = {.path = file_.u16string()}})},
            .message = "",
            .fix = fix};
        return {.findings = {std::move(finding)}, .summary = {.errors = 2}};
    }
};

TEST_F(FixRunTest, ShowWritesNothing) {
    const Answer answer = run(replacement("\"a\""), FixMode::Show);
    EXPECT_THAT(answer.output, StartsWith("diff --git a/A.json b/A.json\n"));
    EXPECT_THAT(answer.complaints,
                ElementsAre("1 finding in 1 file can be fixed; --write changes the files",
                            "2 errors found; see refdoc check"));
    EXPECT_EQ(answer.status, ExitStatus::Negative);
    EXPECT_EQ(content(), "\"a\"\n");
    EXPECT_THAT(written_, ElementsAre());
}

TEST_F(FixRunTest, FileThatHasChangedSinceTheCheckIsRefused) {
    const Answer answer = run(replacement("\"x\""), FixMode::Write);
    EXPECT_EQ(answer.output, "");
    EXPECT_THAT(answer.complaints,
                ElementsAre("can't change \"A.json\": it has changed since it was checked",
                            "nothing to fix", "2 errors left; see refdoc check"));
    EXPECT_EQ(content(), "\"a\"\n");
}

TEST_F(FixRunTest, FileThatCannotBeWrittenIsFailure) {
    // The name is longer than file systems allow.
    const Answer answer = run({.newName = std::u16string(300, u'B')}, FixMode::Write);
    EXPECT_EQ(answer.status, ExitStatus::Failed);
    EXPECT_EQ(answer.output, "");
    EXPECT_THAT(answer.complaints,
                ElementsAre(StartsWith("can't write \"A.json\": "), "nothing to fix",
                            "2 errors left; see refdoc check"));
    EXPECT_EQ(content(), "\"a\"\n");
}

TEST_F(FixRunTest, LaterPassesEndOnceNothingIsMade) {
    // The second pass does not find the original any more.
    const Answer answer = run(replacement("\"a\""), FixMode::Write);
    EXPECT_THAT(written_, ElementsAre("A.json"));
    EXPECT_EQ(content(), "\"b\"\n");
    EXPECT_THAT(answer.output, StartsWith("diff --git a/A.json b/A.json\n"));
}

} // namespace
} // namespace refdoc::check
