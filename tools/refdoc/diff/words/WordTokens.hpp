#pragma once

#include <string_view>
#include <vector>

namespace refdoc::diff {

/// A piece of a text that a comparison keeps together.
struct WordToken {
    std::string_view text;
    bool isSpace;
};

/// Appends the tokens of a text: words, runs of spaces, and single graphemes of everything else.
///
/// A word is a run of letters, digits and marks. Chinese and Japanese characters and the letters of
/// South-East Asian scripts, which put no spaces between words, are tokens of their own. Graphemes
/// are never split. The texts of the tokens together are the whole text, which has to outlive them.
/// \param text  UTF-8
void appendTokens(std::string_view text, std::vector<WordToken>& tokens);

} // namespace refdoc::diff
