#include "platform/package/StreamHelper.hpp"

#include "platform/package/ContentSource.hpp"
#include "platform/package/PackageError.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

namespace docparser_tests {

namespace {

/// Delivers a string in pieces of at most `pieceLength` bytes, then ends or fails.
class StringStream final : public opc::InputStream {
public:
    StringStream(std::string content, std::size_t pieceLength, bool failsAtEnd = false)
        : content_(std::move(content)), pieceLength_(pieceLength), failsAtEnd_(failsAtEnd) {}

    std::size_t read(char* buffer, std::size_t length) override {
        const std::size_t count =
            std::min({length, pieceLength_, content_.size() - deliveredLength_});
        if (count == 0 && failsAtEnd_)
            throw opc::PackageError("damaged");
        std::copy_n(content_.data() + deliveredLength_, count, buffer);
        deliveredLength_ += count;
        return count;
    }

private:
    std::string content_;
    std::size_t pieceLength_;
    bool failsAtEnd_;
    std::size_t deliveredLength_ = 0;
};

/// Accepts at most three bytes per write.
class NarrowBuffer final : public std::streambuf {
protected:
    std::streamsize xsputn(const char*, std::streamsize length) override {
        return std::min<std::streamsize>(length, 3);
    }
};

TEST(StreamHelperTest, AppendsTheWholeInputToTheOutput) {
    const std::string content = std::string(100'000, 'x') + "end";
    for (const std::size_t pieceLength : {std::size_t{7777}, std::size_t{1} << 30}) {
        StringStream input(content, pieceLength);
        std::ostringstream output;
        output << "before ";
        EXPECT_TRUE(opc::StreamHelper::copyStreamToStream(input, output));
        EXPECT_TRUE(output.str() == "before " + content) << pieceLength;
    }
}

TEST(StreamHelperTest, CopiesAnEmptyInput) {
    StringStream input("", 1);
    std::ostringstream output;
    EXPECT_TRUE(opc::StreamHelper::copyStreamToStream(input, output));
    EXPECT_EQ(output.str(), "");
}

TEST(StreamHelperTest, ThrowsWhatTheInputThrows) {
    StringStream input("text", 100, /*failsAtEnd=*/true);
    std::ostringstream output;
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(input, output), opc::PackageError);
}

TEST(StreamHelperTest, ThrowsWhenTheOutputDoesNotTakeAllBytes) {
    NarrowBuffer buffer;
    std::ostream output(&buffer);
    StringStream first("a longer text", 100);
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(first, output), opc::PackageError);
    output.clear();
    output.exceptions(std::ios::badbit);
    StringStream second("a longer text", 100);
    EXPECT_THROW(opc::StreamHelper::copyStreamToStream(second, output), std::ios_base::failure);
}

} // namespace

} // namespace docparser_tests
