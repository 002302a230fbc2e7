// Compares the UTF-8 decoder with ICU: one U+FFFD for each maximal ill-formed sequence.

#include "platform/unicode/Transcoding.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <array>
#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>
#ifdef DOCPARSER_TESTDATA
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#endif

namespace platform {

namespace {

using std::string;
using std::u16string;

struct CloseConverter {
    void operator()(UConverter* converter) const noexcept { ucnv_close(converter); }
};

// ICU's converter from UTF-8 with its default substitution.
class IcuUtf8 {
public:
    u16string convert(std::string_view bytes) {
        UErrorCode error = U_ZERO_ERROR;
        u16string units(bytes.size() + 1, u'\0');
        const std::int32_t length =
            ucnv_toUChars(converter_.get(), units.data(), static_cast<std::int32_t>(units.size()),
                          bytes.data(), static_cast<std::int32_t>(bytes.size()), &error);
        if (U_FAILURE(error))
            throw std::runtime_error(u_errorName(error));
        units.resize(static_cast<std::size_t>(length));
        return units;
    }

private:
    static UConverter* open() {
        UErrorCode error = U_ZERO_ERROR;
        UConverter* const converter = ucnv_open("UTF-8", &error);
        if (U_FAILURE(error))
            throw std::runtime_error(u_errorName(error));
        return converter;
    }

    std::unique_ptr<UConverter, CloseConverter> converter_{open()};
};

string hex(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    string text;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text += {digits[value >> 4], digits[value & 0xF], ' '};
    }
    return text;
}

class Utf8DecoderTest : public testing::Test {
protected:
    // Compares the decoder with ICU on one string. Records only differences, because it is called
    // millions of times.
    void compare(std::string_view bytes) {
        if (toUtf16(bytes) != icu_.convert(bytes))
            addDifference(bytes);
    }

    // Compares on a string and on the same string between two characters.
    void compareAloneAndEmbedded(std::string_view bytes) {
        compare(bytes);
        embedded_.assign(1, 'A').append(bytes).append(1, 'z');
        compare(embedded_);
    }

    // Compares on every string of `length` bytes from a set.
    void compareCombinations(std::string_view set, std::size_t length) {
        std::vector<std::size_t> choice(length, 0);
        string bytes(length, set.front());
        for (std::size_t changed = 0; changed < length;) {
            compareAloneAndEmbedded(bytes);
            for (changed = 0; changed < length; ++changed) {
                choice[changed] = (choice[changed] + 1) % set.size();
                bytes[changed] = set[choice[changed]];
                if (choice[changed] != 0)
                    break;
            }
        }
    }

    ~Utf8DecoderTest() override {
        EXPECT_THAT(differences_, testing::IsEmpty())
            << "the first strings that ICU decodes differently";
    }

    IcuUtf8 icu_;

private:
    void addDifference(std::string_view bytes) {
        constexpr std::size_t enough = 10;
        if (differences_.size() < enough)
            differences_.push_back(hex(bytes.substr(0, 100)));
    }

    std::vector<string> differences_;
    string embedded_;
};

// The first and last bytes of each class in well-formed sequences, and 'A'.
constexpr std::string_view kClassEnds(
    "\x00\x41\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3"
    "\xF4\xF5\xFF",
    25);

// The bytes next to them.
constexpr std::string_view
    kNeighbours("\x01\x7E\x81\x8E\x91\x9E\xA1\xBE\xC3\xDE\xE2\xEB\xF2\xF6\xF7\xF8\xFB\xFC\xFD\xFE",
                20);

// One byte of each class.
constexpr std::string_view kClasses("\x41\x85\x95\xAA\xC1\xD0\xE0\xE5\xED\xEF\xF0\xF2\xF4\xF8", 14);

TEST_F(Utf8DecoderTest, EndsAnIllFormedSequenceBeforeTheNextCharacterAsIcuDoes) {
    EXPECT_EQ(icu_.convert("\xE3"
                           "A"),
              u"\uFFFDA");
    EXPECT_EQ(toUtf16("\xE3"
                      "A"),
              u"\uFFFDA");
}

TEST_F(Utf8DecoderTest, AgreesWithBothDecodersOfIcuOnMaximalSequences) {
    const u16string replaced = u"\uFFFD\uFFFD\uFFFDA\uFFFDA\uFFFD\uFFFDA\uFFFD";
    const std::string_view bytes = "\xC0\xAF\xE1\x80"
                                   "A\xF1\x80\x80"
                                   "A\xE0\x80"
                                   "A\xF4\x8F\xBF";
    const auto whole = icu::UnicodeString::fromUTF8(
        icu::StringPiece(bytes.data(), static_cast<std::int32_t>(bytes.size())));
    EXPECT_EQ(icu_.convert(bytes), replaced);
    EXPECT_EQ(u16string(whole.getBuffer(), static_cast<std::size_t>(whole.length())), replaced);
    EXPECT_EQ(toUtf16(bytes), replaced);
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnEverySequenceOfOneOrTwoBytes) {
    string every;
    for (int byte = 0; byte < 256; ++byte)
        every += static_cast<char>(byte);
    compareCombinations(every, 1);
    compareCombinations(every, 2);
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnEverySequenceOfThreeBytesBetweenCharacters) {
    string bytes;
    for (int first = 0; first < 256; ++first) {
        bytes.clear();
        for (int rest = 0; rest < 0x10000; ++rest)
            bytes += {static_cast<char>(first), static_cast<char>(rest >> 8),
                      static_cast<char>(rest), 'A'};
        compare(bytes);
    }
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnThreeBytesAroundTheEndsOfEachClass) {
    compareCombinations(string(kClassEnds).append(kNeighbours), 3);
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnFourBytesAtTheEndsOfEachClass) {
    compareCombinations(kClassEnds, 4);
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnFiveBytesOfEachClass) {
    compareCombinations(kClasses, 5);
}

TEST_F(Utf8DecoderTest, DecodesEveryCodePointAndEncodesItAgain) {
    u16string units;
    string bytes;
    for (UChar32 codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        if (U_IS_SURROGATE(codePoint))
            continue;
        std::array<char16_t, U16_MAX_LENGTH> unitsOfOne;
        std::array<std::uint8_t, U8_MAX_LENGTH> bytesOfOne;
        std::size_t unitCount = 0;
        std::size_t byteCount = 0;
        U16_APPEND_UNSAFE(unitsOfOne, unitCount, codePoint);
        U8_APPEND_UNSAFE(bytesOfOne, byteCount, codePoint);
        const u16string one(unitsOfOne.data(), unitCount);
        const string encoded(bytesOfOne.begin(), bytesOfOne.begin() + byteCount);
        ASSERT_EQ(toUtf16(encoded), one) << codePoint;
        ASSERT_EQ(toUtf8(one), encoded) << codePoint;
        ASSERT_TRUE(isWellFormedUtf8(encoded)) << codePoint;
        units += one;
        bytes += encoded;
    }
    EXPECT_EQ(toUtf16(bytes), units);
    EXPECT_EQ(toUtf8(units), bytes);
}

TEST_F(Utf8DecoderTest, AgreesWithIcuOnRandomMixtures) {
    constexpr std::array<std::string_view, 8> pieces{"plain text ",      "\xC3\xA9", "\xE6\x9D\xB1",
                                                     "\xF0\x9F\x8C\xB3", "\xE6\x9D", "\xF0\x9F",
                                                     "\xED\xA0\x80",     "\xFF"};
    std::mt19937 random(20240229); // fixed, so that each run compares the same strings
    for (int round = 0; round < 20'000; ++round) {
        string bytes;
        const std::size_t length = round % 100 == 0 ? 3000 : random() % 40;
        while (bytes.size() < length) {
            if (random() % 2 == 0)
                bytes += pieces[random() % pieces.size()];
            else
                bytes += static_cast<char>(random() % 256);
        }
        compare(bytes);
    }
}

#ifdef DOCPARSER_TESTDATA

std::vector<string> linesOf(const char* file) {
    std::ifstream stream(std::filesystem::path(DOCPARSER_TESTDATA) / file, std::ios::binary);
    std::vector<string> lines;
    for (string line; std::getline(stream, line);) {
        if (!line.empty() && line.front() != '#')
            lines.push_back(line);
    }
    return lines;
}

std::vector<string> split(const string& line, char separator) {
    std::vector<string> fields;
    std::istringstream stream(line);
    for (string field; std::getline(stream, field, separator);)
        fields.push_back(field);
    return fields;
}

string bytesOfHex(const string& text) {
    string digits;
    for (const char letter : text) {
        if (letter != ' ')
            digits += letter;
    }
    string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

u16string unitsOfHex(const string& text) {
    const string bytes = bytesOfHex(text);
    u16string units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) << 8 |
                                       static_cast<unsigned char>(bytes[i + 1]));
    return units;
}

TEST(SharedUtfCasesTest, DecodesEachUtf8SequenceOfTheTable) {
    const std::vector<string> lines = linesOf("utf/generated/utf8_to_utf16.tsv");
    EXPECT_FALSE(lines.empty());
    for (const string& line : lines) {
        const std::vector<string> fields = split(line, '\t');
        ASSERT_EQ(fields.size(), 3u) << line;
        const string bytes = bytesOfHex(fields[0]);
        EXPECT_EQ(toUtf16(bytes), unitsOfHex(fields[2])) << line;
        EXPECT_EQ(isWellFormedUtf8(bytes), fields[1] == "1") << line;
    }
}

TEST(SharedUtfCasesTest, EncodesEachUtf16SequenceOfTheTable) {
    const std::vector<string> lines = linesOf("utf/generated/utf16_to_utf8.tsv");
    EXPECT_FALSE(lines.empty());
    for (const string& line : lines) {
        const std::vector<string> fields = split(line, '\t');
        ASSERT_EQ(fields.size(), 3u) << line;
        const u16string units = unitsOfHex(fields[0]);
        EXPECT_EQ(toUtf8(units), bytesOfHex(fields[2])) << line;
        EXPECT_EQ(isWellFormedUtf16(units), fields[1] == "1") << line;
    }
}

struct ReplacementCase {
    string bytes;
    string expected; // UTF-8, with each ill-formed sequence replaced
};

// Reads the fields of a line "number:type:bytes[:bytes when skipping:bytes when replacing]"; empty
// if the line has another form.
std::optional<ReplacementCase> readCase(const std::vector<string>& fields) {
    if (fields.size() < 3)
        return std::nullopt;
    const string type = fields[1].substr(fields[1].find_first_not_of(' '));
    if (type == "valid")
        return ReplacementCase{fields[2], fields[2]};
    if (type == "valid hex")
        return ReplacementCase{bytesOfHex(fields[2]), bytesOfHex(fields[2])};
    if (type == "invalid hex" && fields.size() == 5)
        return ReplacementCase{bytesOfHex(fields[2]), bytesOfHex(fields[4])};
    return std::nullopt;
}

TEST(SharedUtfCasesTest, ReplacesAsEachDecoderTestCaseExpects) {
    int cases = 0;
    for (const string& line : linesOf("utf/utf8tests/utf8tests.txt")) {
        const auto one = readCase(split(line, ':'));
        if (!one)
            continue;
        ++cases;
        EXPECT_EQ(toUtf8(toUtf16(one->bytes)), one->expected) << line;
    }
    EXPECT_EQ(cases, 222);
}

#endif

} // namespace

} // namespace platform
