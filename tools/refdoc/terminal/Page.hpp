#pragma once

#include "tools/refdoc/terminal/PageSetup.hpp"
#include "tools/refdoc/terminal/Paint.hpp"
#include "tools/refdoc/terminal/Table.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc {

/// Text for people, built from top to bottom. Control characters in the strings never reach the
/// page.
class Page {
public:
    explicit Page(const PageSetup& setup) : setup_(setup) {}

    /// Keeps the words beside it on one line of a title, which shows a space instead.
    static constexpr char16_t kNoBreakSpace = u'\x00A0';

    /// Adds a line in bold, underlined with a rule of this character.
    void title(std::u16string_view text, char rule);

    /// Adds a line in bold, after an empty line.
    void heading(std::size_t indent, std::u16string_view text);

    /// Adds one line of words, separated by spaces.
    void words(std::size_t indent, const std::vector<Cell>& words);

    /// Adds wrapped text.
    void text(std::size_t indent, std::u16string_view text, Paint paint = Paint::Plain);

    /// Adds a table that wraps its cells. If there are fewer than 40 columns, a table with titles
    /// has one field per line.
    void table(std::size_t indent, const Table& table);

    /// Adds a table with one line per row. Rows that are wider than the terminal are folded; if it
    /// has fewer than 40 columns, there is one field per line.
    void records(const Table& table);

    void emptyLine() { page_ += '\n'; }
    bool isEmpty() const noexcept { return page_.empty(); }
    std::string take() { return std::move(page_); }

private:
    void wrapped(std::size_t indent, std::string_view text, Paint paint);
    void line(std::size_t indent, std::string_view text);
    std::size_t widthAt(std::size_t indent) const;

    PageSetup setup_;
    std::string page_;
};

} // namespace refdoc
