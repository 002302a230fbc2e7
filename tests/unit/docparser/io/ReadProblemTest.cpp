#include "docparser/io/ReadProblem.hpp"

#include "docparser/DocParserException.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/package/PackageError.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

namespace reference::docparser {
namespace {

using Problem = std::pair<Fate, std::string>;

template <class Failure>
Problem problemAfter(Failure failure) {
    ReadProblem problem = problemOf(std::make_exception_ptr(std::move(failure)));
    return {problem.fate, std::move(problem.reason)};
}

Problem problemOfOpeningAt(const std::u16string& path,
                           const std::exception_ptr& failure = nullptr) {
    ReadProblem problem = problemOfOpening(path, failure);
    return {problem.fate, std::move(problem.reason)};
}

TEST(ReadProblem, TellsWhatKeptAFileFromBeingRead) {
    EXPECT_EQ(problemAfter(std::runtime_error("no disk")), Problem(Fate::Unreadable, "no disk"));
    EXPECT_EQ(problemAfter(opc::PackageError("bad entry")), Problem(Fate::Unreadable, "bad entry"));
    EXPECT_EQ(problemAfter(platform::LimitError("too large")),
              Problem(Fate::OverLimit, "too large"));
    EXPECT_EQ(problemAfter(std::bad_alloc()), Problem(Fate::Failed, "there is not enough memory"));
    EXPECT_EQ(problemAfter(5), Problem(Fate::Unreadable, ""));
}

TEST(ReadProblem, TellsOfTheApplicationsOwnExceptions) {
    const DocParserException exception(u"Orchard");
    EXPECT_EQ(problemAfter(exception), Problem(Fate::Unreadable, exception.what()));
}

TEST(ReadProblem, OfOpeningTellsWhatBearsTheName) {
    const docparser_tests::TemporaryFolder folder;
    const std::u16string file = folder.write("P.json", "{}").u16string();
    EXPECT_EQ(problemOfOpeningAt(folder.u16()), Problem(Fate::NotRegular, ""));
    EXPECT_EQ(problemOfOpeningAt(folder.u16() + u"/none"), Problem(Fate::Missing, ""));
    EXPECT_EQ(problemOfOpeningAt(file), Problem(Fate::Unreadable, "it cannot be opened"));
    EXPECT_EQ(problemOfOpeningAt(file, std::make_exception_ptr(opc::PackageError("no zip"))),
              Problem(Fate::Unreadable, "no zip"));
    const auto unnameable = problemOfOpeningAt(std::u16string(u"a\0b", 3));
    EXPECT_EQ(unnameable.first, Fate::Missing);
    EXPECT_FALSE(unnameable.second.empty());
}

} // namespace
} // namespace reference::docparser
