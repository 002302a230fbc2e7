#include "tools/refdoc/check/text/JsonDiagnosis.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"
#include "tools/refdoc/check/text/TokenDiagnosis.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace refdoc::check {

namespace json = boost::json;

namespace {

using reference::docparser::placeOfOffset;
using reference::docparser::TextPlace;
using std::string_view_literals::operator""sv;

// How a text in another encoding begins: with a byte-order mark, or with ASCII characters, for each
// of which 'x' stands here. The mark of UTF-32LE begins with the one of UTF-16LE.
constexpr struct {
    std::string_view start;
    std::string_view encoding;
} kOtherEncodings[] = {
    {"\xFF\xFE\0\0"sv, "UTF-32LE"}, {"\0\0\xFE\xFF"sv, "UTF-32BE"}, {"\xFF\xFE"sv, "UTF-16LE"},
    {"\xFE\xFF"sv, "UTF-16BE"},     {"x\0\0\0"sv, "UTF-32LE"},      {"\0\0\0x"sv, "UTF-32BE"},
    {"x\0x\0"sv, "UTF-16LE"},       {"\0x\0x"sv, "UTF-16BE"},
};

// Finds errors that concern the whole file rather than a position in it.
std::optional<JsonDiagnosis> diagnoseFile(std::string_view text) {
    const auto hasOnly = [&](std::string_view characters) {
        return text.find_first_not_of(characters) == std::string_view::npos;
    };
    const std::string_view content = text.empty()         ? "is empty"
                                     : hasOnly("\0"sv)    ? "contains only NUL bytes"
                                     : hasOnly(" \t\r\n") ? "contains only white space"
                                                          : "";
    if (!content.empty())
        return JsonDiagnosis{0,
                             fmt::format("the file {}; restore its content or delete it", content)};
    const auto matches = [](char expected, char byte) {
        return expected == 'x' ? byte != '\0' : expected == byte;
    };
    for (const auto& [start, encoding] : kOtherEncodings) {
        if (std::ranges::equal(start, text.substr(0, start.size()), matches))
            return JsonDiagnosis{0, fmt::format("the file is {}; save it as UTF-8", encoding)};
    }
    return std::nullopt;
}

// What may come next in a document.
enum class Expected {
    Value,
    ValueOrEnd, // after the opening bracket of an array
    Key,
    KeyOrEnd, // after the opening bracket of an object
    Colon,
    CommaOrEnd,
    Nothing, // after the document
};

std::string_view describe(Expected expected) {
    switch (expected) {
    case Expected::Value: return "a value";
    case Expected::ValueOrEnd: return "a value or a closing bracket";
    case Expected::Key: return "a key";
    case Expected::KeyOrEnd: return "a key or a closing bracket";
    case Expected::Colon: return "a colon";
    case Expected::CommaOrEnd: return "a comma or a closing bracket";
    case Expected::Nothing: break;
    }
    return "the end of the document";
}

// Finds the first error of a text by its tokens, as the parser does.
class DocumentWalk {
public:
    explicit DocumentWalk(std::string_view text) : text_(text), lexer_(text) {}

    // Returns empty if there is no error.
    std::optional<JsonDiagnosis> diagnose() {
        for (;;) {
            const Token token = lexer_.next();
            if (auto diagnosis = check(token); diagnosis || token.type == TokenType::End)
                return diagnosis;
            advance(token);
            previous_ = token;
        }
    }

private:
    std::optional<JsonDiagnosis> check(const Token& token) const {
        if (token.type == TokenType::End)
            return expected_ == Expected::Nothing ? std::nullopt : std::optional(cutOff(token));
        if (token.type == TokenType::Character)
            return checkCharacter(token);
        if (auto diagnosis = checkStructure(token))
            return diagnosis;
        return checkContent(token);
    }

    JsonDiagnosis checkCharacter(const Token& token) const {
        if (auto diagnosis = diagnoseToken(text_, token))
            return *diagnosis;
        return {token.begin, fmt::format("expected {}, found the character {}", describe(expected_),
                                         nameCharacter(text_, token))};
    }

    std::optional<JsonDiagnosis> checkContent(const Token& token) const {
        auto diagnosis = diagnoseToken(text_, token);
        if (token.type == TokenType::OpenString && !diagnosis)
            return cutOff(token);
        const bool isAtEnd = token.end == text_.size() && !open_.empty();
        if (token.type == TokenType::Word && diagnosis && isAtEnd)
            return cutOff({TokenType::End, token.end, token.end});
        return diagnosis;
    }

    std::optional<JsonDiagnosis> checkStructure(const Token& token) const {
        if (token.type == TokenType::ObjectEnd || token.type == TokenType::ArrayEnd)
            return checkClosingBracket(token);
        switch (expected_) {
        case Expected::Value:
        case Expected::ValueOrEnd: return checkValue(token);
        case Expected::Key:
        case Expected::KeyOrEnd: return checkKey(token);
        case Expected::Colon: return checkColon(token);
        case Expected::CommaOrEnd: return checkComma(token);
        case Expected::Nothing: break;
        }
        return JsonDiagnosis{token.begin, "content after the end of the document; remove it"};
    }

    std::optional<JsonDiagnosis> checkClosingBracket(const Token& token) const {
        if (open_.empty())
            return JsonDiagnosis{token.begin,
                                 "a closing bracket without an opening one; remove it"};
        const bool isObject = token.type == TokenType::ObjectEnd;
        if (isObject != isInObject())
            return JsonDiagnosis{token.begin,
                                 fmt::format("expected {} to close the {}, found {}",
                                             isObject ? ']' : '}', describeOpen(open_.back()),
                                             text_[token.begin])};
        if (previous_.type == TokenType::Comma)
            return JsonDiagnosis{previous_.begin, "a comma before the closing bracket; remove it"};
        if (previous_.type == TokenType::Colon)
            return JsonDiagnosis{token.begin, "missing value after the colon; add one"};
        if (expected_ == Expected::Colon)
            return JsonDiagnosis{previous_.end, "missing colon and value after the key; add both"};
        return std::nullopt;
    }

    std::optional<JsonDiagnosis> checkValue(const Token& token) const {
        if (token.type == TokenType::Comma)
            return superfluousComma(token);
        if (token.type == TokenType::Colon)
            return JsonDiagnosis{token.begin, "a colon where a value belongs; remove it"};
        return std::nullopt;
    }

    std::optional<JsonDiagnosis> checkKey(const Token& token) const {
        switch (token.type) {
        case TokenType::String:
        case TokenType::OpenString: return std::nullopt;
        case TokenType::Comma: return superfluousComma(token);
        case TokenType::Colon:
            return JsonDiagnosis{token.begin, "missing key before the colon; add one"};
        case TokenType::Word:
            return JsonDiagnosis{token.begin,
                                 "a key without quotation marks; put double quotes around it"};
        default:
            return JsonDiagnosis{token.begin, "missing key and colon before the value; add both"};
        }
    }

    std::optional<JsonDiagnosis> checkColon(const Token& token) const {
        if (token.type == TokenType::Colon)
            return std::nullopt;
        if (token.type == TokenType::Comma)
            return JsonDiagnosis{previous_.end, "missing colon and value after the key; add both"};
        if (touchesString(token))
            return unescapedQuote();
        return JsonDiagnosis{previous_.end, "missing colon after the key; add one"};
    }

    std::optional<JsonDiagnosis> checkComma(const Token& token) const {
        if (token.type == TokenType::Comma)
            return std::nullopt;
        if (token.type == TokenType::Colon)
            return JsonDiagnosis{token.begin, isInObject()
                                                  ? "a second colon after the key; remove it"
                                                  : "a colon in an array; write a comma, or braces "
                                                    "instead of the brackets"};
        if (touchesString(token))
            return unescapedQuote();
        return JsonDiagnosis{previous_.end, fmt::format("missing comma between two {}; add one",
                                                        isInObject() ? "members" : "elements")};
    }

    JsonDiagnosis superfluousComma(const Token& token) const {
        if (previous_.type == TokenType::Comma)
            return {token.begin, "two commas in a row; remove one"};
        if (previous_.type == TokenType::Colon)
            return {token.begin, "missing value after the colon; add one"};
        return {token.begin, "a comma with nothing before it; remove it"};
    }

    // A quotation mark that was meant as text ends its string, and more of the text follows.
    bool touchesString(const Token& token) const {
        const bool isText = token.type == TokenType::Word || token.type == TokenType::String ||
                            token.type == TokenType::OpenString;
        return isText && previous_.type == TokenType::String && previous_.end == token.begin;
    }

    JsonDiagnosis unescapedQuote() const {
        return {previous_.end - 1, "the string ends here, but more text follows; write \\\" for a "
                                   "quotation mark within a string"};
    }

    // \param token  the end of the text, or the string that has no end
    JsonDiagnosis cutOff(const Token& token) const {
        // At the end of an incomplete document that is not blank, a bracket is open.
        const Token& open = token.type == TokenType::End ? open_.back() : token;
        return {token.end, fmt::format("cut off: the {} has no end", describeOpen(open))};
    }

    std::string describeOpen(const Token& open) const {
        const TextPlace place = placeOfOffset(text_, open.begin);
        const std::string_view type = open.type == TokenType::ObjectBegin  ? "object"
                                      : open.type == TokenType::ArrayBegin ? "array"
                                                                           : "string";
        return fmt::format("{} that begins at {}:{}", type, place.line, place.column);
    }

    bool isInObject() const { return open_.back().type == TokenType::ObjectBegin; }

    // \param token  one without an error
    void advance(const Token& token) {
        switch (token.type) {
        case TokenType::ObjectBegin:
        case TokenType::ArrayBegin:
            open_.push_back(token);
            expected_ = isInObject() ? Expected::KeyOrEnd : Expected::ValueOrEnd;
            break;
        case TokenType::ObjectEnd:
        case TokenType::ArrayEnd:
            open_.pop_back();
            passValue();
            break;
        case TokenType::Colon: expected_ = Expected::Value; break;
        case TokenType::Comma: expected_ = isInObject() ? Expected::Key : Expected::Value; break;
        default:
            if (expected_ == Expected::Key || expected_ == Expected::KeyOrEnd)
                expected_ = Expected::Colon;
            else
                passValue();
        }
    }

    void passValue() { expected_ = open_.empty() ? Expected::Nothing : Expected::CommaOrEnd; }

    std::string_view text_;
    JsonLexer lexer_;
    Expected expected_ = Expected::Value;
    std::vector<Token> open_; // the brackets of the objects and arrays around the position
    Token previous_;
};

// Explains the errors that are limits of the parser; the text itself is JSON.
std::string_view describeLimit(const json::error_code& error) {
    if (error == json::error::exponent_overflow)
        return "a number with an exponent that is too large; write a smaller number";
    if (error == json::error::object_too_large || error == json::error::array_too_large ||
        error == json::error::key_too_large || error == json::error::string_too_large)
        return "an object, array or string that is too large; split it";
    return "";
}

} // namespace

JsonDiagnosis diagnoseJson(std::string_view text, std::size_t offset,
                           const json::error_code& error) {
    offset = std::min(offset, text.size());
    if (const std::string_view limit = describeLimit(error); !limit.empty())
        return {offset, std::string(limit)};
    if (auto diagnosis = diagnoseFile(text))
        return *diagnosis;
    if (auto diagnosis = DocumentWalk(text).diagnose())
        return *diagnosis;
    return {offset, error.message()};
}

} // namespace refdoc::check
