#pragma once

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
        for (; offset_ < offset && offset_ < text_.size(); ++offset_) {
            if (text_[offset_] == '\n') {
                ++position_.line;
                position_.column = 1;
            } else if (!isContinuation(offset_ + 1)) {
                ++position_.column;
            }
        }
        return position_;
    }

private:
    // Whether the byte continues a code point.
    bool isContinuation(std::size_t offset) const noexcept {
        return offset < text_.size() && (static_cast<unsigned char>(text_[offset]) & 0xC0U) == 0x80;
    }

    std::string_view text_;
    std::size_t offset_ = 0;
    LineAndColumn position_;
};

} // namespace platform
