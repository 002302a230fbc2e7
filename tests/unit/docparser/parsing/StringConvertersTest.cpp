#include "docparser/parsing/StringConverters.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace docparser_tests {
namespace {

using reference::docparser::StringConverters;
using enum reference::docparser::StringParsingType;

// Returns its own name instead of a converted string.
class Marker final : public StringConverters::Converter {
public:
    explicit Marker(std::u16string name) : name_(std::move(name)) {}

    std::u16string convert(const char* bytes, std::size_t length) const override {
        bytes_ = {bytes, length};
        return name_;
    }

    // The bytes of the last call. The caller owns them.
    std::string_view bytes() const { return bytes_; }

private:
    std::u16string name_;
    mutable std::string_view bytes_;
};

class StringConvertersTest : public testing::Test {
protected:
    const Marker ascii_{u"ascii"};
    const Marker utf8_{u"utf8"};
    const StringConverters converters_{ascii_, utf8_};
};

TEST_F(StringConvertersTest, AsciiStringsGoThroughTheAsciiConverter) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string string(3, static_cast<char>(byte));
        EXPECT_EQ(converters_.convert(string, Ascii), u"ascii") << byte;
    }
    EXPECT_EQ(converters_.convert("", Ascii), u"ascii");
    EXPECT_EQ(converters_.convert("caf\xC3\xA9", Ascii), u"ascii");
}

TEST_F(StringConvertersTest, Utf8StringsOfPlainBytesGoThroughTheAsciiConverter) {
    for (const char* string :
         {"", "abc", "\x01", "\x7E", "\x01\x7E", "Join two trees at the trunk."})
        EXPECT_EQ(converters_.convert(string, Utf8), u"ascii") << string;
}

TEST_F(StringConvertersTest, OtherUtf8StringsGoThroughTheUtf8Converter) {
    for (const std::string_view string :
         {std::string_view("caf\xC3\xA9"), std::string_view("\x7F"), std::string_view("\0", 1),
          std::string_view("\x80"), std::string_view("\xFF"), std::string_view("\xE6\xA8\xB9")})
        EXPECT_EQ(converters_.convert(string, Utf8), u"utf8") << string;
}

TEST_F(StringConvertersTest, EachByteOfAUtf8StringCounts) {
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t position = 0; position < length; ++position) {
            for (int byte = 0; byte < 256; ++byte) {
                std::string string(length, 'x');
                string[position] = static_cast<char>(byte);
                const bool isPlain = byte >= 1 && byte <= 126;
                EXPECT_EQ(converters_.convert(string, Utf8), isPlain ? u"ascii" : u"utf8")
                    << "byte " << byte << " at " << position << " of " << length;
            }
        }
    }
}

TEST_F(StringConvertersTest, NeighboursOfAByteDoNotHideIt) {
    for (const char neighbour : {'\x01', '\x7E', '\x7F', '\x00', '\xFF'}) {
        for (const char other : {'\x00', '\x7F', '\x80', '\xFF'}) {
            for (std::size_t position = 0; position < 8; ++position) {
                std::string string(8, neighbour);
                string[position] = other;
                EXPECT_EQ(converters_.convert(string, Utf8), u"utf8")
                    << int{neighbour} << ' ' << int{other} << ' ' << position;
            }
        }
    }
}

TEST_F(StringConvertersTest, TheConverterGetsTheWholeString) {
    const std::string plain = "Join two trees";
    converters_.convert(plain, Utf8);
    EXPECT_EQ(ascii_.bytes().data(), plain.data());
    EXPECT_EQ(ascii_.bytes().size(), plain.size());
    const std::string other("caf\xC3\xA9 \0 end", 11);
    converters_.convert(other, Utf8);
    EXPECT_EQ(utf8_.bytes().data(), other.data());
    EXPECT_EQ(utf8_.bytes().size(), other.size());
}

} // namespace
} // namespace docparser_tests
