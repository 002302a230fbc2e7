#include "tools/refdoc/check/text/TokenDiagnosis.hpp"

#include "platform/unicode/Utf8.hpp"

#include <boost/algorithm/string/predicate.hpp>
#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <locale>
#include <string>
#include <utility>

namespace refdoc::check {

namespace {

using platform::DecodedSequence;
using platform::decodeUtf8;

constexpr bool isDigit(char character) noexcept {
    return character >= '0' && character <= '9';
}

constexpr bool isPrintableAscii(char32_t character) noexcept {
    return character > 0x20 && character < 0x7F;
}

std::string describeIllFormed(char byte) {
    return fmt::format("the byte 0x{:02X} is not valid UTF-8; save the file as UTF-8",
                       static_cast<unsigned char>(byte));
}

// A pair of surrogates, as in \uD83C\uDF33.
constexpr std::size_t kLongestEscape = 12;

// One character of a string, or what is wrong with it.
struct StringPart {
    std::size_t length;
    std::string message{};   // empty if it is valid
    bool mayBeCutOff = true; // more text after it could make it valid
};

// Returns the code unit of the \u escape that a string begins with; empty if there is none.
std::optional<std::uint16_t> readCodeUnit(std::string_view text) {
    constexpr std::size_t kLength = 6;
    if (!text.starts_with("\\u") || text.size() < kLength)
        return std::nullopt;
    std::uint16_t unit = 0;
    const char* const end = text.data() + kLength;
    const auto result = std::from_chars(text.data() + 2, end, unit, 16);
    return result.ptr == end ? std::optional(unit) : std::nullopt;
}

constexpr bool isHighSurrogate(std::uint16_t unit) noexcept {
    return (unit & 0xFC00) == 0xD800;
}

constexpr bool isLowSurrogate(std::uint16_t unit) noexcept {
    return (unit & 0xFC00) == 0xDC00;
}

StringPart readUnicodeEscape(std::string_view text) {
    const std::optional<std::uint16_t> unit = readCodeUnit(text);
    if (!unit)
        return {2, "\\u without four hexadecimal digits after it; add them, or write \\\\ for a "
                   "backslash"};
    if (!isHighSurrogate(*unit) && !isLowSurrogate(*unit))
        return {6};
    const std::optional<std::uint16_t> next = readCodeUnit(text.substr(6));
    if (isHighSurrogate(*unit) && next && isLowSurrogate(*next))
        return {12};
    return {6, fmt::format("\\u{:04X} is half of a surrogate pair; write both halves, or the "
                           "character itself",
                           *unit)};
}

StringPart readEscape(std::string_view text) {
    const char type = text.size() > 1 ? text[1] : '\0';
    if (type == 'u')
        return readUnicodeEscape(text);
    if (type != '\0' && std::string_view(R"("\/bfnrt)").find(type) != std::string_view::npos)
        return {2};
    if (isPrintableAscii(static_cast<unsigned char>(type)))
        return {2, fmt::format(R"(\{} is not an escape sequence; write \\ for a backslash)", type)};
    return {2, "a backslash without an escape sequence; write \\\\ for a backslash"};
}

std::string describeControl(std::string_view text) {
    if (text.starts_with('\n') || text.starts_with("\r\n"))
        return "a line break in a string; write \\n, or end the string before it";
    if (text.starts_with('\r'))
        return "a carriage return in a string; write \\r";
    if (text.starts_with('\t'))
        return "a tab in a string; write \\t";
    const auto control = static_cast<unsigned char>(text.front());
    return fmt::format("the control character U+{0:04X} in a string; write \\u{0:04X}", control);
}

StringPart readStringPart(std::string_view text) {
    const char first = text.front();
    if (static_cast<unsigned char>(first) < 0x20)
        return {1, describeControl(text), false};
    if (first == '\\')
        return readEscape(text);
    const DecodedSequence sequence = decodeUtf8(text);
    if (sequence.isWellFormed)
        return {sequence.length};
    return {sequence.length, describeIllFormed(first), sequence.length == text.size()};
}

struct WrongLiteral {
    std::string_view word;
    std::string_view literal;
};

constexpr WrongLiteral kWrongLiterals[] = {
    {"true", "true"},      {"false", "false"}, {"null", "null"},
    {"none", "null"},      {"nil", "null"},    {"nan", "null"},
    {"undefined", "null"}, {"inf", "null"},    {"infinity", "null"},
};

bool consume(std::string_view& text, std::string_view characters) {
    const bool isThere = !text.empty() && characters.find(text.front()) != std::string_view::npos;
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

// Returns false if there are no digits.
bool consumeDigits(std::string_view& text) {
    const std::string_view before = text;
    while (consume(text, "0123456789")) {
    }
    return text.size() < before.size();
}

// \returns  empty if the word is a number
std::string_view describeNumber(std::string_view word) {
    if (word.starts_with('+'))
        return "a number that begins with a plus sign; remove the sign";
    consume(word, "-");
    if (word.starts_with("0x") || word.starts_with("0X"))
        return "a hexadecimal number; write it in decimal";
    if (word.starts_with('.'))
        return "missing digit before the decimal point; add a 0";
    if (word.size() > 1 && word[0] == '0' && isDigit(word[1]))
        return "a number with a leading zero; remove the zero, or put double quotes around the "
               "number";
    if (!consumeDigits(word))
        return "a minus sign without a number; add the number";
    if (consume(word, ".") && !consumeDigits(word))
        return "missing digit after the decimal point; add a 0";
    if (consume(word, "eE")) {
        consume(word, "+-");
        if (!consumeDigits(word))
            return "missing digit in the exponent; add one";
    }
    return word.empty() ? "" : "not a number; put double quotes around it";
}

std::string describeLiteral(std::string_view word, std::string_view unsignedWord) {
    for (const WrongLiteral& wrong : kWrongLiterals) {
        if (boost::algorithm::iequals(unsignedWord, wrong.word, std::locale::classic()))
            return fmt::format("JSON has no {}; write {}", word, wrong.literal);
    }
    return "a word without quotation marks; put double quotes around it";
}

bool isConflictMarker(std::string_view text, std::size_t at) {
    if (at > 0 && text[at - 1] != '\n')
        return false;
    const std::string_view line = text.substr(at);
    return line.starts_with("<<<<<<<") || line.starts_with("=======") ||
           line.starts_with(">>>>>>>");
}

bool isTypographicQuote(char32_t codePoint) {
    return (codePoint >= 0x2018 && codePoint <= 0x201F) || codePoint == 0x00AB ||
           codePoint == 0x00BB;
}

std::optional<JsonDiagnosis> diagnoseString(std::string_view text, const Token& token) {
    const bool isOpen = token.type == TokenType::OpenString;
    const std::size_t end = isOpen ? token.end : token.end - 1;
    for (std::size_t at = token.begin + 1; at < end;) {
        StringPart part = readStringPart(text.substr(at, end - at));
        const bool isCutOff = isOpen && part.mayBeCutOff && end - at < kLongestEscape;
        if (!part.message.empty())
            return isCutOff ? std::nullopt
                            : std::optional(JsonDiagnosis{at, std::move(part.message)});
        at += part.length;
    }
    return std::nullopt;
}

std::optional<JsonDiagnosis> diagnoseWord(std::string_view text, const Token& token) {
    const std::string_view word = text.substr(token.begin, token.end - token.begin);
    if (word == "true" || word == "false" || word == "null")
        return std::nullopt;
    std::string_view unsignedWord = word;
    consume(unsignedWord, "+-");
    const bool isNumber =
        unsignedWord.empty() || isDigit(unsignedWord[0]) || unsignedWord[0] == '.';
    if (!isNumber)
        return JsonDiagnosis{token.begin, describeLiteral(word, unsignedWord)};
    const std::string_view message = describeNumber(word);
    return message.empty() ? std::nullopt
                           : std::optional(JsonDiagnosis{token.begin, std::string(message)});
}

std::optional<JsonDiagnosis> diagnoseCharacter(std::string_view text, const Token& token) {
    const std::string_view rest = text.substr(token.begin);
    const DecodedSequence first = decodeUtf8(rest);
    if (!first.isWellFormed)
        return JsonDiagnosis{token.begin, describeIllFormed(rest.front())};
    if (isConflictMarker(text, token.begin))
        return JsonDiagnosis{token.begin, "a merge-conflict marker; resolve the conflict"};
    if (rest.starts_with("//") || rest.starts_with("/*") || rest.starts_with('#'))
        return JsonDiagnosis{token.begin, "a comment, which JSON does not have; remove it"};
    if (rest.starts_with('\''))
        return JsonDiagnosis{token.begin, "a single quotation mark; use double quotes"};
    if (isTypographicQuote(first.codePoint))
        return JsonDiagnosis{token.begin,
                             "a typographic quotation mark; use straight double quotes"};
    return std::nullopt;
}

} // namespace

std::optional<JsonDiagnosis> diagnoseToken(std::string_view text, const Token& token) {
    switch (token.type) {
    case TokenType::String:
    case TokenType::OpenString: return diagnoseString(text, token);
    case TokenType::Word: return diagnoseWord(text, token);
    case TokenType::Character: return diagnoseCharacter(text, token);
    default: return std::nullopt;
    }
}

std::string nameCharacter(std::string_view text, const Token& token) {
    const char32_t codePoint = decodeUtf8(text.substr(token.begin)).codePoint;
    if (isPrintableAscii(codePoint))
        return std::string(1, static_cast<char>(codePoint));
    return fmt::format("U+{:04X}", static_cast<std::uint32_t>(codePoint));
}

} // namespace refdoc::check
