#pragma once

#include "tools/refdoc/check/text/JsonDiagnosis.hpp"
#include "tools/refdoc/check/text/JsonLexer.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::check {

/// Returns the first error of a token itself, wherever it is in the document; empty if it has none.
/// A TokenType::Character is always an error, but empty if it is unknown what it was meant to be.
///
/// The end of the text is not an error: an escape or a character that it cuts off is ignored.
/// \param token  of `text`
std::optional<JsonDiagnosis> diagnoseToken(std::string_view text, const Token& token);

/// Returns how a message names a character: itself if it is printable ASCII, else as U+00A0.
/// \param token  a TokenType::Character of `text`
std::string nameCharacter(std::string_view text, const Token& token);

} // namespace refdoc::check
