#include "tools/refdoc/check/text/JsonLexer.hpp"

#include "platform/unicode/Utf8.hpp"

namespace refdoc::check {

namespace {

constexpr bool isWhiteSpace(char character) noexcept {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

constexpr bool isWordCharacter(char character) noexcept {
    const char lower = static_cast<char>(character | 0x20);
    return (lower >= 'a' && lower <= 'z') || (character >= '0' && character <= '9') ||
           std::string_view("_$+-.").find(character) != std::string_view::npos;
}

TokenType typeOf(char first) noexcept {
    switch (first) {
    case '{': return TokenType::ObjectBegin;
    case '}': return TokenType::ObjectEnd;
    case '[': return TokenType::ArrayBegin;
    case ']': return TokenType::ArrayEnd;
    case ':': return TokenType::Colon;
    case ',': return TokenType::Comma;
    case '"': return TokenType::String;
    default: return isWordCharacter(first) ? TokenType::Word : TokenType::Character;
    }
}

// \param quote  a quotation mark after the opening one of its string
bool isEscaped(std::string_view text, std::size_t quote) noexcept {
    const std::size_t before = text.find_last_not_of('\\', quote - 1);
    const std::size_t backslashes = quote - before - 1;
    return backslashes % 2 == 1;
}

} // namespace

Token JsonLexer::next() noexcept {
    while (at_ < text_.size() && isWhiteSpace(text_[at_]))
        ++at_;
    if (at_ == text_.size())
        return {TokenType::End, at_, at_};
    Token token{typeOf(text_[at_]), at_, at_ + 1};
    if (token.type == TokenType::String)
        token = readString();
    else if (token.type == TokenType::Word)
        token.end = endOfWord();
    else if (token.type == TokenType::Character)
        token.end = at_ + platform::decodeUtf8(text_.substr(at_)).length;
    at_ = token.end;
    return token;
}

std::size_t JsonLexer::endOfWord() const noexcept {
    std::size_t end = at_;
    while (end < text_.size() && isWordCharacter(text_[end]))
        ++end;
    return end;
}

Token JsonLexer::readString() const noexcept {
    std::size_t quote = text_.find('"', at_ + 1);
    while (quote != std::string_view::npos && isEscaped(text_, quote))
        quote = text_.find('"', quote + 1);
    if (quote == std::string_view::npos)
        return {TokenType::OpenString, at_, text_.size()};
    return {TokenType::String, at_, quote + 1};
}

} // namespace refdoc::check
