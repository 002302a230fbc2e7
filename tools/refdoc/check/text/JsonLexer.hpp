#pragma once

#include <cstddef>
#include <string_view>

namespace refdoc::check {

enum class TokenType {
    ObjectBegin,
    ObjectEnd,
    ArrayBegin,
    ArrayEnd,
    Colon,
    Comma,
    String,     ///< from the opening to the closing quotation mark
    OpenString, ///< without a closing quotation mark, to the end of the text
    Word,       ///< ASCII letters, digits and "_$+-.": a number, a literal, or invalid
    Character,  ///< any other character, or one ill-formed UTF-8 sequence; always invalid
    End,        ///< the end of the text; empty
};

/// A part of a text, in bytes.
struct Token {
    TokenType type = TokenType::End;
    std::size_t begin = 0;
    std::size_t end = 0; ///< past the last byte
};

/// Splits a text into JSON tokens. It accepts any bytes and does not validate the content of a
/// token. The text must outlive the lexer. Cost: all tokens together are linear in the text.
class JsonLexer {
public:
    explicit JsonLexer(std::string_view text) noexcept : text_(text) {}

    /// Returns the next token; from the end of the text on, always TokenType::End.
    Token next() noexcept;

private:
    std::size_t endOfWord() const noexcept;
    Token readString() const noexcept;

    std::string_view text_;
    std::size_t at_ = 0;
};

} // namespace refdoc::check
