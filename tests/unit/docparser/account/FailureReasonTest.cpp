#include "docparser/account/FailureReason.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/parsing/FormatError.hpp"
#include "platform/ReadLimits.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <boost/json/parse.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace reference::docparser {
namespace {

using FateAndReason = std::pair<Fate, std::string>;

FateAndReason summary(const FailureReason& reason) {
    return {reason.fate, reason.reason};
}

template <class Failure>
FateAndReason reading(Failure failure) {
    return summary(reasonOfReading(std::make_exception_ptr(std::move(failure))));
}

template <class Failure>
FateAndReason use(Failure failure) {
    return summary(reasonOfUse(std::make_exception_ptr(std::move(failure)), "{}"));
}

TEST(ReasonOfReading, BlamesTheFileUnlessMemoryIsShort) {
    EXPECT_EQ(reading(std::runtime_error("no disk")), FateAndReason(Fate::Unreadable, "no disk"));
    EXPECT_EQ(reading(platform::LimitError("too large")),
              FateAndReason(Fate::OverLimit, "too large"));
    EXPECT_EQ(reading(std::bad_alloc()), FateAndReason(Fate::Failed, "out of memory"));
    EXPECT_EQ(reading(5), FateAndReason(Fate::Unreadable, "unknown error"));
    const DocParserException exception(u"Orchard");
    EXPECT_EQ(reading(exception), FateAndReason(Fate::Unreadable, exception.what()));
}

TEST(ReasonOfOpening, DistinguishesFoldersMissingFilesAndOpenFailures) {
    const docparser_tests::TemporaryFolder folder;
    const std::u16string file = folder.write("P.json", "{}").u16string();
    const auto opening = [](const std::u16string& path) {
        return summary(reasonOfOpening(path, nullptr));
    };
    EXPECT_EQ(opening(folder.u16()), FateAndReason(Fate::NotRegular, ""));
    EXPECT_EQ(opening(folder.u16() + u"/none"), FateAndReason(Fate::Missing, ""));
    EXPECT_EQ(opening(file), FateAndReason(Fate::Unreadable, "the file cannot be opened"));
    EXPECT_EQ(summary(reasonOfOpening(file, std::make_exception_ptr(std::runtime_error("no zip")))),
              FateAndReason(Fate::Unreadable, "no zip"));
}

TEST(ReasonOfOpening, CallsAPathThatCannotNameAFileMissing) {
    const FailureReason reason = reasonOfOpening(std::u16string(u"a\0b", 3), nullptr);
    EXPECT_EQ(reason.fate, Fate::Missing);
    EXPECT_FALSE(reason.reason.empty());
}

TEST(ReasonOfUse, DoesNotBlameTheFileForOtherFailures) {
    EXPECT_EQ(use(std::bad_alloc()), FateAndReason(Fate::Failed, "out of memory"));
    EXPECT_EQ(use(std::runtime_error("closed")), FateAndReason(Fate::Failed, "closed"));
    const std::system_error noLock(std::make_error_code(std::errc::operation_not_permitted));
    EXPECT_EQ(use(noLock), FateAndReason(Fate::Failed, noLock.what()));
    EXPECT_EQ(use(DocParserException(u"P")),
              FateAndReason(Fate::Failed, DocParserException(u"P").what()));
    EXPECT_EQ(use(5), FateAndReason(Fate::Failed, "unknown error"));
}

TEST(ReasonOfUse, PointsToWhatBreaksTheFormat) {
    const std::string text = "{\n  \"href\": 1}";
    const boost::json::value document = boost::json::parse(text);
    FormatError error(&document.at("href"), "expected a string");
    error.locate(document);
    const FailureReason reason = reasonOfUse(std::make_exception_ptr(error), text);
    EXPECT_EQ(summary(reason), FateAndReason(Fate::Malformed, "expected a string"));
    EXPECT_EQ(reason.pointer, "/href");
    EXPECT_EQ(reason.place, (TextPlace{.offset = 12, .line = 2, .column = 11}));
}

TEST(ReasonOfUse, PointsToInvalidJson) {
    const std::string text = "[1,\n x]";
    try {
        boost::json::parse(text);
        FAIL() << "the text is valid";
    } catch (...) {
        const FailureReason reason = reasonOfUse(std::current_exception(), text);
        EXPECT_EQ(reason.fate, Fate::Malformed);
        EXPECT_FALSE(reason.reason.empty());
        EXPECT_EQ(reason.place, (TextPlace{.offset = 5, .line = 2, .column = 2}));
    }
}

TEST(ApplyReason, RemovesOnlyTheSectionsOfAMalformedFile) {
    const std::vector<SectionAccount> sections = {{.key = u"orchard"}};
    FileAccount malformed{.sections = sections};
    applyReason({.fate = Fate::Malformed, .reason = "bad", .pointer = "/x"}, malformed);
    EXPECT_EQ(malformed, (FileAccount{.fate = Fate::Malformed, .reason = "bad", .pointer = "/x"}));
    FileAccount failed{.sections = sections};
    applyReason({.fate = Fate::Failed}, failed);
    EXPECT_EQ(failed, (FileAccount{.fate = Fate::Failed, .sections = sections}));
}

} // namespace
} // namespace reference::docparser
