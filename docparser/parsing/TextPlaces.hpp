#pragma once

#include "docparser/shared/TextPlace.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

// Finds positions in a resource file for messages about it. The parsed document does not record
// them, so they are searched for only when a message needs them.

/// The position of a value in a JSON text.
struct ValuePlace {
    TextPlace value;              ///< the first character of the value
    std::optional<TextPlace> key; ///< the quotation mark before its key; empty unless a member

    bool operator==(const ValuePlace&) const = default;
};

/// The syntax error that makes a text invalid JSON.
struct SyntaxProblem {
    TextPlace place;    ///< the position where the parser stopped
    std::string reason; ///< the parser's message

    bool operator==(const SyntaxProblem&) const = default;
};

/// Escapes a key for a JSON pointer: '~' becomes "~0" and '/' becomes "~1".
std::string pointerToken(std::string_view key);

/// Returns the position of a byte of a text. An offset past the end of the text means the end.
/// Cost: linear in the offset.
TextPlace placeOfOffset(std::string_view text, std::size_t offset);

/// Finds values of a JSON text by their JSON pointers (RFC 6901), in one pass over the text.
///
/// If an object repeats a key, the last one counts, as it does for the parser.
/// \param text      valid JSON; for any other text the results are unspecified
/// \param pointers  "" is the document itself
/// \returns         the position for each pointer, in order; empty if there is no such value
std::vector<std::optional<ValuePlace>> findValues(std::string_view text,
                                                  const std::vector<std::string>& pointers);

/// Returns the first syntax error of a text; empty if the text is valid JSON and not nested deeper
/// than resource files may be. Cost: one parse of the text.
std::optional<SyntaxProblem> findSyntaxProblem(std::string_view text);

} // namespace reference::docparser
