#include "platform/package/StreamHelper.hpp"

#include "platform/package/PackageError.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <sstream>
#include <streambuf>

namespace docparser_tests {

namespace {

/// Gives a text in pieces, claims what it is told to, and can fail where the text ends.
class TextStream final : public opc::InputStream {
public:
    TextStream(std::string text, std::uint64_t claim, std::size_t piece, bool failsAtEnd = false)
        : text_(std::move(text)), claim_(claim), piece_(piece), failsAtEnd_(failsAtEnd) {}

    std::size_t read(char* buffer, std::size_t length) override {
        mostAskedFor = std::max(mostAskedFor, length);
        const std::size_t count = std::min({length, piece_, text_.size() - given_});
        if (count == 0 && failsAtEnd_)
            throw opc::PackageError("damaged");
        std::copy_n(text_.data() + given_, count, buffer);
        given_ += count;
        return count;
    }

    std::uint64_t claimedSize() const noexcept override { return claim_; }

    std::size_t mostAskedFor = 0;

private:
    std::string text_;
    std::uint64_t claim_;
    std::size_t piece_;
    bool failsAtEnd_;
    std::size_t given_ = 0;
};

/// Takes a few bytes and then no more.
class NarrowBuffer final : public std::streambuf {
protected:
    std::streamsize xsputn(const char*, std::streamsize length) override {
        return std::min<std::streamsize>(length, 3);
    }
};

TEST(StreamHelperTest, AllIsReadWhateverIsClaimedAndHoweverItComes) {
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{1}, std::size_t{1000}, std::size_t{16 * 1024},
          std::size_t{16 * 1024 + 1}, std::size_t{3'000'000}}) {
        const std::string text = sampleText(length);
        for (const std::uint64_t claim :
             {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{length}, std::uint64_t{length} + 1,
              std::uint64_t{length} * 3, std::numeric_limits<std::uint64_t>::max()}) {
            for (const std::size_t piece : {std::size_t{999}, std::size_t{1} << 30}) {
                TextStream stream(text, claim, piece);
                EXPECT_TRUE(opc::StreamHelper::readAll(stream) == text)
                    << length << ' ' << claim << ' ' << piece;
            }
        }
    }
}

TEST(StreamHelperTest, ATrueClaimIsMetWithOneAllocation) {
    for (const std::size_t length : {std::size_t{100}, std::size_t{1024 * 1024}}) {
        TextStream stream(sampleText(length), length, std::size_t{1} << 30);
        EXPECT_EQ(opc::StreamHelper::readAll(stream).capacity(), length);
    }
}

TEST(StreamHelperTest, AFalseClaimTakesNoMoreThanTheFirstStep) {
    TextStream stream("text", std::numeric_limits<std::uint64_t>::max(), 100);
    const std::string text = opc::StreamHelper::readAll(stream);
    EXPECT_EQ(text, "text");
    EXPECT_LE(text.capacity(), 1024U * 1024U);
    EXPECT_LE(stream.mostAskedFor, 1024U * 1024U);
}

TEST(StreamHelperTest, AFailureOfTheInputIsThrown) {
    TextStream first("text", 4, 100, /*failsAtEnd=*/true);
    EXPECT_THROW(opc::StreamHelper::readAll(first), opc::PackageError);
    TextStream second("text", 4, 100, /*failsAtEnd=*/true);
    std::ostringstream output;
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(second, output), opc::PackageError);
}

TEST(StreamHelperTest, ACopyAppendsToTheOutput) {
    const std::string text = sampleText(100'000);
    TextStream stream(text, 0, 7777);
    std::ostringstream output;
    output << "before ";
    EXPECT_TRUE(opc::StreamHelper::copyStreamToStream(stream, output));
    EXPECT_TRUE(output.str() == "before " + text);
}

TEST(StreamHelperTest, AnEmptyInputIsCopiedToo) {
    TextStream stream("", 0, 1);
    std::ostringstream output;
    EXPECT_TRUE(opc::StreamHelper::copyStreamToStream(stream, output));
    EXPECT_EQ(output.str(), "");
}

TEST(StreamHelperTest, AnOutputThatTakesNoMoreBytesIsAFailure) {
    NarrowBuffer buffer;
    std::ostream output(&buffer);
    TextStream first("a longer text", 0, 100);
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(first, output), opc::PackageError);
    output.clear();
    output.exceptions(std::ios::badbit);
    TextStream second("a longer text", 0, 100);
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(second, output), std::ios_base::failure);
}

} // namespace

} // namespace docparser_tests
