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

/// Text for people, built from top to bottom. Whatever the texts hold, no control character of
/// theirs gets onto the page.
class Page {
public:
    explicit Page(const PageSetup& setup) : setup_(setup) {}

    /// A line in bold with a rule of this character below it.
    void title(std::u16string_view text, char rule);

    /// A line in bold, after an empty line.
    void heading(std::size_t indent, std::u16string_view text);

    /// One line of words with a space between them.
    void words(std::size_t indent, const std::vector<Cell>& words);

    /// Text, wrapped.
    void text(std::size_t indent, std::u16string_view text, Paint paint = Paint::Plain);

    /// A table that wraps its cells.
    void table(std::size_t indent, const Table& table);

    /// A table with one line to a row, cut only where the lines of a terminal end.
    void index(const Table& table);

    void emptyLine() { page_ += '\n'; }
    bool isEmpty() const noexcept { return page_.empty(); }
    std::string take() { return std::move(page_); }

private:
    void line(std::size_t indent, std::string_view text);
    std::size_t widthAt(std::size_t indent) const;

    PageSetup setup_;
    std::string page_;
};

} // namespace refdoc
