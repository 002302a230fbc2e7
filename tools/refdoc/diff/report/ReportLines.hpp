#pragma once

#include "tools/refdoc/terminal/PageSetup.hpp"
#include "tools/refdoc/terminal/Paint.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::diff {

/// Lays out lines of several colours, below titles. On a terminal, lines are wrapped; a file or a
/// pipe gets complete ones.
class ReportLines {
public:
    explicit ReportLines(const PageSetup& setup);

    /// Adds a line that is underlined with a rule of this character, after an empty line unless it
    /// is the first.
    void title(std::string_view text, char rule);

    /// Adds a part of the next line.
    /// \param text  UTF-8 without control characters, see visibleLine()
    void add(std::string_view text, Paint paint = Paint::Plain);

    /// Ends a line.
    void endLine();

    /// Ends a line that begins with a label in a column of its own. Below 40 columns the label is
    /// on a line of its own.
    /// \param label  ASCII, shorter than the column
    void endLine(std::size_t indent, std::string_view label, Paint paint);

    /// The lines so far, in UTF-8.
    std::string take() { return std::move(text_); }

private:
    // A part of the line up to `end`.
    struct Part {
        std::size_t end;
        Paint paint;
    };

    std::size_t widthAt(std::size_t indent) const;
    void appendLine(std::size_t indent, std::size_t firstIndent);
    void appendWrapped(std::size_t indent, std::size_t firstIndent);
    void appendPainted(std::string_view text, Paint paint);
    Paint paintAt(std::size_t position, std::size_t& part) const;

    PageSetup setup_;
    std::size_t width_;
    std::string text_;
    std::string line_;
    std::vector<Part> parts_;
};

} // namespace refdoc::diff
