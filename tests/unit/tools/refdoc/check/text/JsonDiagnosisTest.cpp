#include "tools/refdoc/check/text/JsonDiagnosis.hpp"

#include <boost/json/stream_parser.hpp>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

void PrintTo(const JsonDiagnosis& diagnosis, std::ostream* out) {
    *out << diagnosis.offset << ": " << diagnosis.message;
}

} // namespace refdoc::check

namespace refdoc_tests {
namespace {

namespace json = boost::json;

using namespace refdoc::check;
using std::string_literals::operator""s;

// Returns empty if the text is valid JSON.
std::optional<JsonDiagnosis> diagnose(std::string_view text) {
    json::stream_parser parser;
    json::error_code error;
    std::size_t offset = parser.write_some(text, error);
    if (!error && offset < text.size())
        error = json::error::extra_data;
    if (!error)
        parser.finish(error);
    return error ? std::optional(diagnoseJson(text, offset, error)) : std::nullopt;
}

struct Case {
    std::string text; // with a '^' before the expected offset
    std::string message;
};

void expectDiagnoses(const std::vector<Case>& cases) {
    for (const auto& [marked, message] : cases) {
        std::string text = marked;
        const std::size_t offset = text.find('^');
        ASSERT_NE(offset, text.npos) << marked;
        text.erase(offset, 1);
        EXPECT_EQ(diagnose(text), (JsonDiagnosis{offset, message}))
            << testing::PrintToString(marked);
    }
}

std::string repeat(std::string_view text, std::size_t count) {
    std::string repeated;
    repeated.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

TEST(JsonDiagnosisTest, ExplainsErrorsOfTheWholeFile) {
    expectDiagnoses({
        {"^", "the file is empty; restore its content or delete it"},
        {"^ \r\n\t", "the file contains only white space; restore its content or delete it"},
        {"^\0\0\0\0\0"s, "the file contains only NUL bytes; restore its content or delete it"},
        {"^\xFF\xFE{\0}\0"s, "the file is UTF-16LE; save it as UTF-8"},
        {"^\xFE\xFF\0{\0}"s, "the file is UTF-16BE; save it as UTF-8"},
        {"^{\0}\0"s, "the file is UTF-16LE; save it as UTF-8"},
        {"^\0{\0}"s, "the file is UTF-16BE; save it as UTF-8"},
        {"^\xFF\xFE\0\0{\0\0\0"s, "the file is UTF-32LE; save it as UTF-8"},
        {"^\0\0\xFE\xFF\0\0\0{"s, "the file is UTF-32BE; save it as UTF-8"},
        {"^{\0\0\0}\0\0\0"s, "the file is UTF-32LE; save it as UTF-8"},
        {"^\0\0\0{\0\0\0}"s, "the file is UTF-32BE; save it as UTF-8"},
    });
}

TEST(JsonDiagnosisTest, ExplainsCommas) {
    expectDiagnoses({
        {R"([1^, ])", "a comma before the closing bracket; remove it"},
        {R"({"a": 1^,
})",
         "a comma before the closing bracket; remove it"},
        {R"([1,^, 2])", "two commas in a row; remove one"},
        {R"({"a": 1,^,})", "two commas in a row; remove one"},
        {R"([^, 1])", "a comma with nothing before it; remove it"},
        {R"({^, "a": 1})", "a comma with nothing before it; remove it"},
        {R"(^,)", "a comma with nothing before it; remove it"},
        {R"([1^ 2])", "missing comma between two elements; add one"},
        {R"([{}^{}])", "missing comma between two elements; add one"},
        {R"({"a": 1^
 "b": 2})",
         "missing comma between two members; add one"},
    });
}

TEST(JsonDiagnosisTest, ExplainsKeysAndColons) {
    expectDiagnoses({
        {R"({"a"^ 1})", "missing colon after the key; add one"},
        {R"({"a"^[1]})", "missing colon after the key; add one"},
        {R"({"a" ^= 1})", "expected a colon, found the character ="},
        {R"({"a"^, "b": 1})", "missing colon and value after the key; add both"},
        {R"({"a"^})", "missing colon and value after the key; add both"},
        {R"({"a":^})", "missing value after the colon; add one"},
        {R"({"a":^, "b": 1})", "missing value after the colon; add one"},
        {R"({^: 1})", "missing key before the colon; add one"},
        {R"({^[1]})", "missing key and colon before the value; add both"},
        {R"({^a: 1})", "a key without quotation marks; put double quotes around it"},
        {R"({"a": 1, ^2: 1})", "a key without quotation marks; put double quotes around it"},
        {R"({"a":^: 1})", "a colon where a value belongs; remove it"},
        {R"({"a": 1^: 2})", "a second colon after the key; remove it"},
        {R"(["a"^: 1])", "a colon in an array; write a comma, or braces instead of the brackets"},
    });
}

TEST(JsonDiagnosisTest, ExplainsBracketsAndWhatFollowsTheDocument) {
    expectDiagnoses({
        {R"({"a": [1, 2^}, "b": 3})", "expected ] to close the array that begins at 1:7, found }"},
        {"[\n {\"a\": 1^]]", "expected } to close the object that begins at 2:2, found ]"},
        {R"(^])", "a closing bracket without an opening one; remove it"},
        {R"([1]^])", "a closing bracket without an opening one; remove it"},
        {R"({}^, {})", "content after the end of the document; remove it"},
        {R"({} ^true)", "content after the end of the document; remove it"},
    });
}

TEST(JsonDiagnosisTest, ExplainsCharactersOutsideStrings) {
    expectDiagnoses({
        {R"([^'a'])", "a single quotation mark; use double quotes"},
        {R"({^'a': 1})", "a single quotation mark; use double quotes"},
        {"[^“a”]", "a typographic quotation mark; use straight double quotes"},
        {"^// A comment\n[1]", "a comment, which JSON does not have; remove it"},
        {"[1, ^/* one */ 2]", "a comment, which JSON does not have; remove it"},
        {"[1] ^# end", "a comment, which JSON does not have; remove it"},
        {"[1 ^/ 2]", "expected a comma or a closing bracket, found the character /"},
        {"[\n^<<<<<<< HEAD\n1,\n=======\n2,\n>>>>>>> other\n]",
         "a merge-conflict marker; resolve the conflict"},
        {"[1\n^=======\n, 2]", "a merge-conflict marker; resolve the conflict"},
        {"[1\n^>>>>>>> other\n]", "a merge-conflict marker; resolve the conflict"},
        {"[ ^<<<<<<< ]", "expected a value or a closing bracket, found the character <"},
        {"[1^\xC2\xA0]", "expected a comma or a closing bracket, found the character U+00A0"},
        {"[1, ^🌳]", "expected a value, found the character U+1F333"},
        {"[1]^\0\0"s, "expected the end of the document, found the character U+0000"},
        {R"({^(1): 2})", "expected a key or a closing bracket, found the character ("},
        {R"({"a": 1, ^\"b\": 2})", "expected a key, found the character \\"},
        {"[\"a\"^，\"b\"]", "expected a comma or a closing bracket, found the character U+FF0C"},
        {"[1, ^\xE9]", "the byte 0xE9 is not valid UTF-8; save the file as UTF-8"},
    });
}

TEST(JsonDiagnosisTest, ExplainsWordsAndNumbers) {
    const std::string unquoted = "a word without quotation marks; put double quotes around it";
    const std::string noDecimal = "missing digit after the decimal point; add a 0";
    const std::string noExponent = "missing digit in the exponent; add one";
    const std::string leadingZero =
        "a number with a leading zero; remove the zero, or put double quotes around the number";
    expectDiagnoses({
        {R"([^True])", "JSON has no True; write true"},
        {R"([^FALSE])", "JSON has no FALSE; write false"},
        {R"([^None])", "JSON has no None; write null"},
        {R"([^undefined])", "JSON has no undefined; write null"},
        {R"([^NaN])", "JSON has no NaN; write null"},
        {R"([^-Infinity])", "JSON has no -Infinity; write null"},
        {R"([^truer])", unquoted},
        {R"([^hello])", unquoted},
        {R"({"a": ^R2020a})", unquoted},
        {R"([^01])", leadingZero},
        {R"([^-007])", leadingZero},
        {R"([^+1])", "a number that begins with a plus sign; remove the sign"},
        {R"([^.5])", "missing digit before the decimal point; add a 0"},
        {R"([^-.5])", "missing digit before the decimal point; add a 0"},
        {R"([^1.])", noDecimal},
        {R"([^1.e5])", noDecimal},
        {R"([^1e])", noExponent},
        {R"([^1E+])", noExponent},
        {R"([^0x1F])", "a hexadecimal number; write it in decimal"},
        {R"([^-])", "a minus sign without a number; add the number"},
        {R"([^9.13.0])", "not a number; put double quotes around it"},
        {R"([^1_000])", "not a number; put double quotes around it"},
        {R"([^12px])", "not a number; put double quotes around it"},
    });
}

TEST(JsonDiagnosisTest, ExplainsStrings) {
    const std::string unescapedQuote =
        "the string ends here, but more text follows; write \\\" for "
        "a quotation mark within a string";
    const std::string noHexDigits =
        R"(\u without four hexadecimal digits after it; add them, or write \\ for a backslash)";
    const auto half = [](std::string_view unit) {
        return std::string(unit) +
               " is half of a surrogate pair; write both halves, or the character itself";
    };
    expectDiagnoses({
        {"[\"a^\nb\"]", "a line break in a string; write \\n, or end the string before it"},
        {"{\"a^\r\n\": 1}", "a line break in a string; write \\n, or end the string before it"},
        {"[\"a^\rb\"]", "a carriage return in a string; write \\r"},
        {"[\"a^\tb\"]", "a tab in a string; write \\t"},
        {"[\"a^\x1B[0m\"]", "the control character U+001B in a string; write \\u001B"},
        {"[\"a^\0\"]"s, "the control character U+0000 in a string; write \\u0000"},
        {R"(["C:^\x"])", R"(\x is not an escape sequence; write \\ for a backslash)"},
        {R"(["it^\'s"])", R"(\' is not an escape sequence; write \\ for a backslash)"},
        {"[\"a^\\\nb\"]", R"(a backslash without an escape sequence; write \\ for a backslash)"},
        {R"(["^\u12"])", noHexDigits},
        {R"(["a\\^\u12G4"])", noHexDigits},
        {R"(["^\uD83C"])", half("\\uD83C")},
        {R"(["^\uDF33"])", half("\\uDF33")},
        {R"(["^\ud83cA"])", half("\\uD83C")},
        {R"(["^\ud83c\u0041"])", half("\\uD83C")},
        {"[\"caf^\xE9\"]", "the byte 0xE9 is not valid UTF-8; save the file as UTF-8"},
        {"[\"^\xC0\x80\"]", "the byte 0xC0 is not valid UTF-8; save the file as UTF-8"},
        {"{\"木^\xFF\": 1}", "the byte 0xFF is not valid UTF-8; save the file as UTF-8"},
        {R"({"a": "say ^"hello" to"})", unescapedQuote},
        {R"({"a^"b": 1})", unescapedQuote},
        {R"(["^"a""])", unescapedQuote},
    });
}

TEST(JsonDiagnosisTest, TellsWhatIsCutOff) {
    expectDiagnoses({
        {"{\"a\": [\n  \"some te^", "cut off: the string that begins at 2:3 has no end"},
        {"[\"木\", \"b^", "cut off: the string that begins at 1:7 has no end"},
        {R"({"key^)", "cut off: the string that begins at 1:2 has no end"},
        {R"(["a\^)", "cut off: the string that begins at 1:2 has no end"},
        {R"(["a\u00^)", "cut off: the string that begins at 1:2 has no end"},
        {R"(["\uD83C\uDF^)", "cut off: the string that begins at 1:2 has no end"},
        {"[\"a\xE6\x9C^", "cut off: the string that begins at 1:2 has no end"},
        {R"(["a\\\"^)", "cut off: the string that begins at 1:2 has no end"},
        {"{\"a\": {\"b\": 1},\n \"c\": [1, 2^", "cut off: the array that begins at 2:7 has no end"},
        {R"({"a"^)", "cut off: the object that begins at 1:1 has no end"},
        {R"({"a": [], ^)", "cut off: the object that begins at 1:1 has no end"},
        {R"({"a": tru^)", "cut off: the object that begins at 1:1 has no end"},
        {R"([1, 2.^)", "cut off: the array that begins at 1:1 has no end"},
    });
}

TEST(JsonDiagnosisTest, ExplainsLimitsOfTheParser) {
    const std::string tooLarge = "an object, array or string that is too large; split it";
    EXPECT_EQ(diagnose("[1e9999999999]"),
              (JsonDiagnosis{12, "a number with an exponent that is too large; write a smaller "
                                 "number"}));
    for (const json::error error : {json::error::object_too_large, json::error::array_too_large,
                                    json::error::key_too_large, json::error::string_too_large})
        EXPECT_EQ(diagnoseJson("{}", 1, error), (JsonDiagnosis{1, tooLarge}));
}

TEST(JsonDiagnosisTest, RepeatsTheReasonOfTheParserForAnErrorThatItDoesNotFind) {
    EXPECT_EQ(diagnoseJson("{}", 9, json::error::syntax), (JsonDiagnosis{2, "syntax error"}));
}

// Every construct of JSON, to be damaged.
constexpr std::string_view kSample = R"( {"a\u0041\ud83c\udf33é木": [0, -1.5e+7, true, false, null],
 "": {"b": {}, "c": [[], "\"\\\/\b\f\n\r\t"]}, "d": "🌳"}
)";

// Expects an explanation for a text that the parser rejects, and for no other.
void expectExplained(std::string_view text, const std::string& damage) {
    const JsonDiagnosis unexplained{0, "syntax error"};
    if (const std::optional<JsonDiagnosis> diagnosis = diagnose(text)) {
        EXPECT_LE(diagnosis->offset, text.size()) << damage;
        EXPECT_FALSE(diagnosis->message.empty()) << damage;
        EXPECT_NE(diagnosis->message, unexplained.message) << damage;
    } else {
        EXPECT_EQ(diagnoseJson(text, 0, json::error::syntax), unexplained) << damage;
    }
}

TEST(JsonDiagnosisTest, ExplainsEveryPrefix) {
    ASSERT_EQ(diagnose(kSample), std::nullopt);
    for (std::size_t size = 0; size <= kSample.rfind('}'); ++size) {
        const std::string_view prefix = kSample.substr(0, size);
        EXPECT_TRUE(diagnose(prefix)) << size;
        expectExplained(prefix, std::to_string(size));
    }
}

TEST(JsonDiagnosisTest, ExplainsEveryChangeOfOneByte) {
    for (std::size_t at = 0; at < kSample.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::string damage = std::to_string(byte) + " at " + std::to_string(at);
            std::string text(kSample);
            text[at] = static_cast<char>(byte);
            expectExplained(text, damage);
            text = kSample;
            text.insert(at, 1, static_cast<char>(byte));
            expectExplained(text, damage + " inserted");
        }
        std::string text(kSample);
        text.erase(at, 1);
        expectExplained(text, "without " + std::to_string(at));
    }
}

// If the time were quadratic, one of these would take hours.
TEST(JsonDiagnosisTest, TakesLinearTimeForLargeTexts) {
    constexpr std::size_t kSize = 10'000'000;
    const std::vector<std::string> texts{
        std::string(kSize, '['),          std::string(kSize, '{'),
        std::string(kSize, '"'),          std::string(kSize, '1') + 'x',
        std::string(kSize, ' ') + 'x',    '"' + std::string(kSize, '\\'),
        '"' + repeat("\\\"", kSize / 2),  '[' + repeat("\"\",", kSize / 3),
        '[' + repeat("[],\n", kSize / 4), '"' + repeat("\\ud83c\\udf33", kSize / 12),
        '[' + repeat("'", kSize),         '[' + repeat("\n<<<<<<", kSize / 7),
        '"' + std::string(kSize, '\xE6'),
    };
    for (const std::string& text : texts) {
        const std::optional<JsonDiagnosis> diagnosis = diagnose(text);
        ASSERT_TRUE(diagnosis) << text.substr(0, 20);
        EXPECT_LE(diagnosis->offset, text.size()) << text.substr(0, 20);
        EXPECT_LT(diagnosis->message.size(), 200) << text.substr(0, 20);
    }
}

} // namespace
} // namespace refdoc_tests
