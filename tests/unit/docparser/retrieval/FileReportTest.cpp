#include "docparser/retrieval/FileReport.hpp"

#include "docparser/DocParserException.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace reference::docparser {
namespace {

// What an account has of a file whose reading or use threw.
template <class Failure>
FileAccount accountAfter(Failure failure, const ReadProblem& problem = {}) {
    LoadAccount account;
    FileReport report(&account, FileRole::Lookup, u"P.json", {}, false);
    *report.problem() = problem;
    report.conclude(std::make_exception_ptr(std::move(failure)));
    return account.files.at(0);
}

TEST(FileReport, WithoutAnAccountDoesNothing) {
    FileReport report(nullptr, FileRole::Lookup, u"P.json", {}, false);
    report.keepText("{}");
    report.conclude(std::make_exception_ptr(std::runtime_error("")));
    EXPECT_EQ(report.problem(), nullptr);
    EXPECT_EQ(report.sections(), nullptr);
}

TEST(FileReport, AFileThatIsNotConcludedHasFailed) {
    LoadAccount account;
    const FileReport report(&account, FileRole::Lookup, u"P.json", u"entry", true);
    EXPECT_EQ(account.files, std::vector<FileAccount>({{.role = FileRole::Lookup,
                                                        .path = u"P.json",
                                                        .entry = u"entry",
                                                        .isTranslation = true,
                                                        .fate = Fate::Failed}}));
}

TEST(FileReport, WhatCouldNotBeReadIsTheCauseOfWhatFollows) {
    const FileAccount file = accountAfter(std::runtime_error("no JSON"), {Fate::Missing, "gone"});
    EXPECT_EQ(file.fate, Fate::Missing);
    EXPECT_EQ(file.reason, "gone");
}

TEST(FileReport, APathOfNoFileIsMissing) {
    const FileAccount file = accountAfter(
        std::system_error(std::make_error_code(std::errc::invalid_argument), "the path"));
    EXPECT_EQ(file.fate, Fate::Missing);
    EXPECT_TRUE(file.reason.starts_with("the path"));
}

TEST(FileReport, WhatIsNotTheFilesFaultHasFailed) {
    const std::pair<FileAccount, std::string> cases[] = {
        {accountAfter(std::bad_alloc()), "there is not enough memory"},
        {accountAfter(std::runtime_error("closed")), "closed"},
        {accountAfter(DocParserException(u"P")), DocParserException(u"P").what()},
        {accountAfter(5), "a service of the application failed"}};
    for (const auto& [file, reason] : cases) {
        EXPECT_EQ(file.fate, Fate::Failed);
        EXPECT_EQ(file.reason, reason);
    }
}

TEST(FileReport, SectionsOfAFileThatFailedStayUnused) {
    LoadAccount account;
    FileReport report(&account, FileRole::Resources, u"P.json", {}, false);
    report.sections()->push_back({.key = u"orchard", .fate = SectionFate::Unused});
    report.conclude(std::make_exception_ptr(std::bad_alloc()));
    EXPECT_EQ(account.files.at(0).sections.at(0).fate, SectionFate::Unused);
}

// Each of the others differs from the account in one field, in the order of the fields.
template <class Account>
void expectEachFieldCounts(const Account& account, const std::vector<Account>& others) {
    EXPECT_TRUE(account == Account(account));
    for (std::size_t field = 0; field < others.size(); ++field)
        EXPECT_FALSE(account == others[field]) << "field " << field;
}

TEST(LoadAccountEquality, EachFieldOfARecordCounts) {
    expectEachFieldCounts<RecordAccount>({}, {{.name = u"graft"},
                                              {.href = u"graft.html"},
                                              {.fate = RecordFate::Replaced},
                                              {.file = 1},
                                              {.winner = 1}});
}

TEST(LoadAccountEquality, EachFieldOfASectionCounts) {
    expectEachFieldCounts<SectionAccount>({}, {{.key = u"orchard"},
                                               {.pointer = "/supportPackages/0"},
                                               {.fate = SectionFate::Merged},
                                               {.isInstalled = true},
                                               {.other = 1},
                                               {.records = {{}}}});
}

TEST(LoadAccountEquality, EachFieldOfAFileCounts) {
    expectEachFieldCounts<FileAccount>({}, {{.role = FileRole::Package},
                                            {.path = u"P.json"},
                                            {.entry = u"E.json"},
                                            {.isTranslation = true},
                                            {.fate = Fate::Missing},
                                            {.reason = "gone"},
                                            {.pointer = "/refItems"},
                                            {.place = TextPlace()},
                                            {.sections = {{}}}});
}

} // namespace
} // namespace reference::docparser
