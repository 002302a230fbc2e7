#include "tools/refdoc/diff/report/MarkdownText.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>

namespace refdoc::diff {

namespace {

// ASCII punctuation that does nothing within a line.
constexpr std::string_view kHarmless = " ,;/?%()=-+\"'";

std::size_t longestRun(std::string_view text, char wanted) {
    std::size_t longest = 0;
    std::size_t run = 0;
    for (const char byte : text) {
        run = byte == wanted ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

bool isLetterOrDigit(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9');
}

} // namespace

std::string codeSpan(std::string_view text) {
    if (text.empty())
        return {};
    const std::string content = visibleLine(text);
    const std::string fence(longestRun(content, '`') + 1, '`');
    // A renderer removes one space from each end if both have one.
    const bool needsSpaces = content.starts_with('`') || content.ends_with('`') ||
                             (content.starts_with(' ') && content.ends_with(' '));
    const std::string_view gap = needsSpaces ? " " : "";
    return fence + std::string(gap) + content + std::string(gap) + fence;
}

std::string escapedMarkdown(std::string_view text) {
    std::string escaped;
    char previous = ' ';
    for (const char byte : visibleLine(text)) {
        const bool isAscii = static_cast<unsigned char>(byte) < 0x80;
        // Only "www." begins a link.
        const bool isFullStop = byte == '.' && previous != 'w' && previous != 'W';
        if (isAscii && !isLetterOrDigit(byte) && !isFullStop &&
            kHarmless.find(byte) == kHarmless.npos)
            escaped += '\\';
        escaped += byte;
        if (byte == '@') // an e-mail address or a user, even after a backslash
            escaped += "<!-- -->";
        previous = byte;
    }
    return escaped;
}

} // namespace refdoc::diff
