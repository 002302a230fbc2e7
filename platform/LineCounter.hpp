#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace platform {

/// A line and a column of a text, both from 1.
struct LineAndColumn {
    std::size_t line = 1;
    std::size_t column = 1;

    bool operator==(const LineAndColumn&) const = default;
};

/// Counts the lines and columns of a UTF-8 text. A line ends with U+000A, and a column is one code
/// point. The text must outlive the counter.
class LineCounter {
public:
    explicit LineCounter(std::string_view text) noexcept : text_(text) {}

    /// Returns the position of a byte; of a byte within a code point, the position of the code
    /// point. An offset past the end of the text means the end.
    /// \param offset  at least that of the previous call, so that the text is read only once
    LineAndColumn positionOf(std::size_t offset) noexcept {
        const std::string_view passed = text_.substr(0, offset);
        for (std::size_t end = passed.find('\n', offset_); end != passed.npos;
             end = passed.find('\n', offset_)) {
            offset_ = end + 1;
            position_ = {position_.line + 1, 1};
        }
        if (offset_ < passed.size())
            passColumns(passed.size());
        return position_;
    }

private:
    // A column ends where the next byte starts another code point, or where the text ends.
    void passColumns(std::size_t end) noexcept {
        const auto isContinuation = [](char byte) {
            return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
        };
        const std::string_view next = text_.substr(offset_ + 1, end - offset_);
        const auto continuations = std::ranges::count_if(next, isContinuation);
        position_.column += end - offset_ - static_cast<std::size_t>(continuations);
        offset_ = end;
    }

    std::string_view text_;
    std::size_t offset_ = 0;
    LineAndColumn position_;
};

} // namespace platform
