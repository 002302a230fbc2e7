#pragma once

#include "tools/refdoc/check/text/JsonDiagnosis.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::check {

// What is wrong with a token itself, wherever it is in the document.

/// Returns the first error in a string. The end of the text is not an error: an escape or a
/// character that it cuts off is ignored.
/// \param token  a TokenType::String or TokenType::OpenString of `text`
std::optional<JsonDiagnosis> diagnoseString(std::string_view text, const Token& token);

/// Returns what makes a word neither a JSON number nor true, false or null; empty if it is one.
/// \param token  a TokenType::Word of `text`
std::optional<JsonDiagnosis> diagnoseWord(std::string_view text, const Token& token);

/// Returns what a character that belongs to no JSON token was probably meant to be, such as the
/// start of a comment; empty if that is unknown.
/// \param token  a TokenType::Character of `text`
std::optional<JsonDiagnosis> diagnoseKnownCharacter(std::string_view text, const Token& token);

/// Returns how a message names a character: itself if it is printable ASCII, else as U+00A0.
/// \param token  a TokenType::Character of `text`
std::string nameCharacter(std::string_view text, const Token& token);

} // namespace refdoc::check
