#pragma once

#include <cstddef>
#include <string_view>

namespace fl::i18n {

/// What one step of decoding UTF-8 took from the text.
struct DecodedSequence {
    char32_t codePoint; ///< U+FFFD for an ill-formed sequence
    std::size_t length; ///< bytes that belong to it, 1 to 4
    bool isWellFormed;
};

/// Decodes the sequence at the start of `text`, which is not empty.
///
/// An ill-formed sequence is maximal: its bytes are those that some well-formed sequence starts
/// with, one byte at the least. E3 41 is the ill-formed E3 and then an A.
DecodedSequence decodeUtf8(std::string_view text) noexcept;

} // namespace fl::i18n
