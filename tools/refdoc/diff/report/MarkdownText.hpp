#pragma once

#include <string>
#include <string_view>

namespace refdoc::diff {

// Both functions return Markdown that shows a text as it is, on one line. Nothing in the text is
// taken for markup, HTML, a link or the mention of a user. Control characters become visible.

/// Returns a text as a code span.
/// \param text  UTF-8; if empty, the result is empty too
std::string codeSpan(std::string_view text);

/// Returns a text as prose.
/// \param text  UTF-8
std::string escapedMarkdown(std::string_view text);

} // namespace refdoc::diff
