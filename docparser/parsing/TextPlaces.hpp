#pragma once

#include "docparser/Export.hpp"
#include "docparser/shared/TextPlace.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace reference::docparser {

// Places in the text of a resource file, for messages about it. The parsed document knows none, so
// that reading a good file costs nothing for them.

/// Where a value stands in a JSON text.
struct ValuePlace {
    TextPlace value;              ///< its first character
    std::optional<TextPlace> key; ///< of a member: the quotation mark before its key

    bool operator==(const ValuePlace&) const = default;
};

/// What keeps a text from being JSON.
struct SyntaxProblem {
    TextPlace place;    ///< where the parser gave up
    std::string reason; ///< why, in its words

    bool operator==(const SyntaxProblem&) const = default;
};

/// A key as a JSON pointer writes it: '~' as "~0" and '/' as "~1".
DOCPARSER_EXPORT std::string pointerToken(std::string_view key);

/// The place of a byte of a text.
/// \param offset  at most the text's length
/// Cost: linear in the offset.
DOCPARSER_EXPORT TextPlace placeOfOffset(std::string_view text, std::size_t offset);

/// Finds values of a JSON text by their pointers (RFC 6901), in one pass over the text.
///
/// Of equal keys the last one counts, as it does for the parser.
/// \param text      what the parser has accepted; any other text is safe and finds what it finds
/// \param pointers  "" is the document itself
/// \returns         an answer for each pointer, in their order; empty when the text has no such
/// value
DOCPARSER_EXPORT std::vector<std::optional<ValuePlace>>
findValues(std::string_view text, const std::vector<std::string>& pointers);

/// The first thing that keeps a text from being JSON as resource files are; empty when there is
/// none. Cost: one parse of the text.
DOCPARSER_EXPORT std::optional<SyntaxProblem> findSyntaxProblem(std::string_view text);

} // namespace reference::docparser
