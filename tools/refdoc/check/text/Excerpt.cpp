#include "tools/refdoc/check/text/Excerpt.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>

namespace refdoc::check {

namespace {

constexpr std::size_t kLeastColumns = 20;
constexpr std::size_t kMostColumns = 1000;
constexpr std::string_view kEllipsis = "...";

// How far to look for the ends of a line: more bytes than a column of any language needs.
constexpr std::size_t kBytesPerColumn = 16;

struct Extent {
    std::size_t bytes = 0;
    std::size_t columns = 0;
};

// Returns the extent of the longest start of a string that fits into a number of columns.
Extent measureStart(std::string_view visible, std::size_t columns) {
    Extent extent;
    for (std::size_t end = 0; end < visible.size();) {
        const std::size_t width = nextGrapheme(visible, end).width;
        if (extent.columns + width > columns)
            break;
        extent = {end, extent.columns + width};
    }
    return extent;
}

std::string_view firstColumns(std::string_view visible, std::size_t columns) {
    return visible.substr(0, measureStart(visible, columns).bytes);
}

std::string_view lastColumns(std::string_view visible, std::size_t columns) {
    const std::size_t width = displayWidth(visible);
    const std::size_t excess = width - std::min(columns, width);
    const Extent cut = measureStart(visible, excess);
    // A wide character that is only partly in excess is removed too.
    const bool isWideAtCut = cut.columns < excess;
    return visible.substr(isWideAtCut ? measureStart(visible, excess + 1).bytes : cut.bytes);
}

bool isTrailingByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// Returns the offset of the first byte of a character. A well-formed one has up to three more.
std::size_t startOfCharacter(std::string_view text, std::size_t offset) {
    for (int step = 0; step < 3 && offset > 0 && offset < text.size(); ++step)
        offset -= isTrailingByte(text[offset]) ? 1 : 0;
    return offset;
}

std::size_t endOfCharacter(std::string_view text, std::size_t offset) {
    while (offset < text.size() && isTrailingByte(text[offset]))
        ++offset;
    return offset;
}

// A line, or what is near the position in it.
struct Window {
    std::string_view before; // the position
    std::string_view after;  // and at the position
    bool isLineStart;        // `before` begins where the line begins
    bool isLineEnd;          // `after` ends where the line ends
};

Window windowAround(std::string_view text, std::size_t offset, std::size_t reach) {
    const std::size_t begin = startOfCharacter(text, offset - std::min(offset, reach));
    const std::size_t end = startOfCharacter(text, std::min(text.size() - offset, reach) + offset);
    Window window{text.substr(begin, offset - begin), text.substr(offset, end - offset), begin == 0,
                  end == text.size()};
    if (const std::size_t feed = window.before.rfind('\n'); feed != std::string_view::npos) {
        window.before.remove_prefix(feed + 1);
        window.isLineStart = true;
    }
    if (const std::size_t feed = window.after.find('\n'); feed != std::string_view::npos) {
        window.after = window.after.substr(0, feed);
        window.isLineEnd = true;
        // The carriage return of a line break is not part of the line.
        std::string_view& last = window.after.empty() ? window.before : window.after;
        last.remove_suffix(last.ends_with('\r') ? 1 : 0);
    }
    return window;
}

std::string cutStart(std::string_view visible, bool isWhole, std::size_t columns) {
    if (isWhole && displayWidth(visible) <= columns)
        return std::string(visible);
    return std::string(kEllipsis) + std::string(lastColumns(visible, columns - kEllipsis.size()));
}

std::string cutEnd(std::string_view visible, bool isWhole, std::size_t columns) {
    if (isWhole && displayWidth(visible) <= columns)
        return std::string(visible);
    return std::string(firstColumns(visible, columns - kEllipsis.size())) + std::string(kEllipsis);
}

// Shares the columns between the two sides of the position: half each, unless one needs less.
std::size_t columnsBefore(const Window& window, std::size_t before, std::size_t after,
                          std::size_t columns) {
    const std::size_t half = columns / 2;
    if (window.isLineEnd && after <= columns - half)
        return columns - after;
    return window.isLineStart && before <= half ? before : half;
}

} // namespace

Excerpt excerptOf(std::string_view text, std::size_t offset, std::size_t length,
                  std::size_t columns) {
    columns = std::clamp(columns, kLeastColumns, kMostColumns);
    offset = startOfCharacter(text, std::min(offset, text.size()));
    const Window window = windowAround(text, offset, columns * kBytesPerColumn);
    const std::size_t markedBytes = endOfCharacter(window.after, std::max<std::size_t>(length, 1));
    const std::string marked = visibleLine(window.after.substr(0, markedBytes));
    const std::string before = visibleLine(window.before);
    const std::string after = visibleLine(window.after);

    // The marker needs a column even at the end of the line.
    const std::size_t afterColumns = std::max<std::size_t>(displayWidth(after), 1);
    const std::size_t left = columnsBefore(window, displayWidth(before), afterColumns, columns);
    const std::string shownBefore = cutStart(before, window.isLineStart, left);
    const std::string shownAfter = cutEnd(after, window.isLineEnd, columns - left);
    const std::size_t markedColumns = std::clamp<std::size_t>(
        displayWidth(marked), 1, std::max<std::size_t>(displayWidth(shownAfter), 1));
    return {shownBefore + shownAfter, std::string(displayWidth(shownBefore), ' ') + '^' +
                                          std::string(markedColumns - 1, '~')};
}

} // namespace refdoc::check
