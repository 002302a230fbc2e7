#include "docparser/account/AccountRecorder.hpp"

#include "docparser/account/RetrievalRecording.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "tests/support/NativeText.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <new>
#include <string>
#include <type_traits>
#include <vector>

namespace reference::docparser {
namespace {

using docparser_tests::native;
using property::RefItemLookup;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

RefItemLookup recordOf(std::u16string href) {
    return {u"n",
            property::RefEntityType::Function,
            u"",
            false,
            std::move(href),
            property::FunctionType::Function};
}

class AccountRecorderTest : public testing::Test {
protected:
    // A lookup file with one section.
    void read(const std::u16string& path, const std::u16string& key, SectionFate fate) {
        recorder.fileConsidered(FileRole::Lookup, path, fate == SectionFate::Overlay);
        recorder.sectionFound(key, true);
        recorder.sectionPlaced(key, fate, /*isInstalled=*/false);
    }
    void conclude() { recorder.fileConcluded(nullptr); }

    LoadAccount recorded() {
        LoadAccount account;
        recorder.appendTo(account);
        return account;
    }

    AccountRecorder recorder;
};

static_assert(std::is_nothrow_default_constructible_v<AccountRecorder>);

TEST_F(AccountRecorderTest, RecordsAnUnfinishedFileAsFailed) {
    recorder.fileConsidered(FileRole::Lookup, u"P.json", true);
    EXPECT_THAT(recorded().files, ElementsAre(FileAccount{.role = FileRole::Lookup,
                                                          .path = u"P.json",
                                                          .isTranslation = true,
                                                          .fate = Fate::Failed}));
}

TEST_F(AccountRecorderTest, KeepsReasonOfFailedReadOverLaterFailure) {
    recorder.fileConsidered(FileRole::Lookup, u"P.json", false);
    recorder.readFailed(std::make_exception_ptr(std::bad_alloc()));
    recorder.fileConcluded(std::make_exception_ptr(std::runtime_error("invalid JSON")));
    EXPECT_EQ(recorded().files.at(0).reason, "out of memory");
}

TEST_F(AccountRecorderTest, KeepsSectionsOfAFileThatFailedUnused) {
    recorder.fileConsidered(FileRole::Resources, u"P.json", false);
    recorder.sectionFound(u"orchard", true);
    recorder.fileConcluded(std::make_exception_ptr(std::bad_alloc()));
    EXPECT_THAT(recorded().files.at(0).sections,
                ElementsAre(SectionAccount{.key = u"orchard", .fate = SectionFate::Unused}));
}

TEST_F(AccountRecorderTest, NamesTheEntriesOfAPackage) {
    recorder.fileConsidered(FileRole::Package, u"a/P.zip", false);
    recorder.fileSkipped({}, u"notes.txt", Fate::SkippedName);
    recorder.fileConsidered(FileRole::Lookup, u"en/P.json", false);
    conclude();
    conclude();
    recorder.fileSkipped(u"a", u"P_ja.json", Fate::SkippedLanguage);
    EXPECT_THAT(
        recorded().files,
        ElementsAre(
            FileAccount{.role = FileRole::Package, .path = u"a/P.zip"},
            FileAccount{.role = FileRole::Lookup,
                        .path = u"a/P.zip",
                        .entry = u"notes.txt",
                        .fate = Fate::SkippedName},
            FileAccount{.role = FileRole::Lookup, .path = u"a/P.zip", .entry = u"en/P.json"},
            FileAccount{.role = FileRole::Lookup,
                        .path = native(u"a/P_ja.json"),
                        .isTranslation = true,
                        .fate = Fate::SkippedLanguage}));
}

TEST_F(AccountRecorderTest, SectionWhoseKeyIsTakenRefersToItsOwnFile) {
    read(u"0", u"k", SectionFate::New);
    conclude();
    recorder.fileConsidered(FileRole::Lookup, u"1", false);
    recorder.sectionFound(u"k", true);
    recorder.sectionFound(u"k", false);
    recorder.sectionPlaced(u"k", SectionFate::Merged, /*isInstalled=*/false);
    conclude();
    EXPECT_THAT(recorded().files.at(1).sections,
                ElementsAre(SectionAccount{.key = u"k", .fate = SectionFate::Merged, .other = 0},
                            SectionAccount{.key = u"k",
                                           .pointer = "/supportPackages/0",
                                           .fate = SectionFate::KeyTaken,
                                           .other = 1}));
}

// Three files with records of one name: the third is an overlay on the merge of the first two.
TEST_F(AccountRecorderTest, FollowsRecordsThroughSeveralCombinations) {
    const std::u16string name = u"n";
    const std::vector<RefItemLookup> first = {recordOf(u"a")};
    const std::vector<RefItemLookup> second = {recordOf(u"a"), recordOf(u"b")};
    std::vector<RefItemLookup> merged = first;
    merged.push_back(second[1]);
    const std::vector<RefItemLookup> third = {recordOf(u"b"), recordOf(u"c")};

    read(u"0", u"k", SectionFate::New);
    conclude();
    read(u"1", u"k", SectionFate::Merged);
    recorder.recordDropped(name, first, second, 0);
    recorder.recordAppended(name, merged, second, 1);
    conclude();
    read(u"2", u"k", SectionFate::Overlay);
    recorder.recordDropped(name, third, merged, 0);
    recorder.recordDropped(name, third, merged, 1);
    conclude();

    const LoadAccount account = recorded();
    EXPECT_EQ(account.files.at(1).fate, Fate::Merged);
    EXPECT_THAT(account.files.at(1).sections.at(0).records,
                ElementsAre(RecordAccount{u"n", u"a", RecordFate::DroppedHref, 1, 0},
                            RecordAccount{u"n", u"b", RecordFate::AddedHref, 1, 1}));
    EXPECT_EQ(account.files.at(2).fate, Fate::Overlay);
    EXPECT_EQ(account.files.at(2).sections.at(0).other, 0U);
    EXPECT_THAT(account.files.at(2).sections.at(0).records,
                ElementsAre(RecordAccount{u"n", u"a", RecordFate::DroppedCount, 0, 2},
                            RecordAccount{u"n", u"b", RecordFate::DroppedHref, 1, 2}));
}

TEST_F(AccountRecorderTest, WinnerIsTheFileOfTheRecordThatIsKept) {
    const std::u16string name = u"n";
    const std::vector<RefItemLookup> first = {recordOf(u"a")};
    const std::vector<RefItemLookup> second = {recordOf(u"b"), recordOf(u"c")};
    const std::vector<RefItemLookup> merged = {first[0], second[0], second[1]};
    const std::vector<RefItemLookup> third = {recordOf(u"c"), recordOf(u"d")};

    read(u"0", u"k", SectionFate::New);
    conclude();
    read(u"1", u"k", SectionFate::Merged);
    recorder.recordAppended(name, {first[0], second[0]}, second, 0);
    recorder.recordAppended(name, merged, second, 1);
    conclude();
    read(u"2", u"k", SectionFate::Merged);
    recorder.recordDropped(name, merged, third, 0);
    recorder.recordDropped(name, merged, third, 1);
    conclude();

    EXPECT_THAT(recorded().files.at(2).sections.at(0).records,
                ElementsAre(RecordAccount{u"n", u"c", RecordFate::DroppedHref, 2, 1},
                            RecordAccount{u"n", u"d", RecordFate::DroppedCount, 2, 0}));
}

TEST_F(AccountRecorderTest, SortsRecordsByName) {
    const std::vector<RefItemLookup> records = {recordOf(u"x")};
    read(u"0", u"k", SectionFate::New);
    conclude();
    read(u"1", u"k", SectionFate::Merged);
    recorder.nameAdded(u"b", records);
    recorder.recordDropped(u"a", records, records, 0);
    conclude();
    EXPECT_THAT(recorded().files.at(1).sections.at(0).records,
                ElementsAre(Field(&RecordAccount::name, u"a"), Field(&RecordAccount::name, u"b")));
}

TEST_F(AccountRecorderTest, AdjustsIndicesToTheTargetAccount) {
    read(u"0", u"k", SectionFate::New);
    conclude();
    read(u"1", u"k", SectionFate::Overlay);
    recorder.itemReplaced(u"h");
    conclude();
    LoadAccount account;
    account.files.resize(3);
    recorder.appendTo(account);
    ASSERT_EQ(account.files.size(), 5U);
    EXPECT_EQ(account.files[3].sections.at(0).other, 3U);
    EXPECT_EQ(account.files[4].sections.at(0).other, 3U);
    EXPECT_THAT(account.files[4].sections.at(0).records,
                ElementsAre(RecordAccount{u"h", u"h", RecordFate::Replaced, 3, 4}));
}

TEST_F(AccountRecorderTest, DoesNotCompleteAnAccountThatIsIncomplete) {
    LoadAccount account{.isComplete = false};
    recorder.appendTo(account);
    EXPECT_FALSE(account.isComplete);
}

TEST(RetrievalRecording, ObservesNothingWithoutAScope) {
    RetrievalRecording recording;
    EXPECT_EQ(&recording.observer(), &unobserved);
}

TEST(RetrievalRecording, AppendsToTheAccountActiveAtItsStart) {
    LoadAccount outer;
    LoadAccount inner;
    const LoadAccount::Scope scope(outer);
    {
        RetrievalRecording recording;
        const LoadAccount::Scope innerScope(inner);
        recording.observer().fileSkipped(u"a", u"b", Fate::SkippedName);
    }
    EXPECT_EQ(outer.files.size(), 1U);
    EXPECT_THAT(inner.files, IsEmpty());
}

} // namespace
} // namespace reference::docparser
