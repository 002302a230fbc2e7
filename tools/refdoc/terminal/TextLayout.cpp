#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <boost/algorithm/string/trim.hpp>
#include <utf8proc.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace refdoc {

namespace {

// Small kana, and marks that repeat or lengthen the character before them.
constexpr std::u32string_view kBoundToPrevious =
    U"ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶｧｨｩｪｫｬｭｮｯーｰ々〻ゝゞヽヾ゛゜〜";

utf8proc_category_t categoryOf(const Grapheme& grapheme) {
    return utf8proc_category(static_cast<utf8proc_int32_t>(grapheme.base));
}

bool mayStartLine(const Grapheme& grapheme) {
    switch (categoryOf(grapheme)) {
    case UTF8PROC_CATEGORY_PE: // closing brackets
    case UTF8PROC_CATEGORY_PF: // closing quotation marks
    case UTF8PROC_CATEGORY_PO: // full stops, commas and the like
        return false;
    default: return kBoundToPrevious.find(grapheme.base) == kBoundToPrevious.npos;
    }
}

bool mayEndLine(const Grapheme& grapheme) {
    const utf8proc_category_t category = categoryOf(grapheme);
    return category != UTF8PROC_CATEGORY_PS && category != UTF8PROC_CATEGORY_PI;
}

bool mayBreakBetween(const Grapheme& left, const Grapheme& right) {
    return mayEndLine(left) && mayStartLine(right);
}

// A word, or any other part of a text that stays on one line if it is not wider than the line.
class Piece {
public:
    void add(const Grapheme& grapheme) {
        graphemes_.push_back(grapheme);
        width_ += grapheme.width;
    }

    bool isEmpty() const { return graphemes_.empty(); }
    std::size_t width() const { return width_; }
    const Grapheme& last() const { return graphemes_.back(); }

    // Breaks the piece into parts of at most `width` columns.
    std::vector<Piece> split(std::size_t width) const {
        std::vector<Piece> parts;
        for (std::size_t begin = 0; begin < graphemes_.size();) {
            const std::size_t end = endOfPart(begin, width);
            Piece& part = parts.emplace_back();
            while (begin < end)
                part.add(graphemes_[begin++]);
        }
        return parts;
    }

    void appendTo(std::string& line) const {
        for (const Grapheme& grapheme : graphemes_)
            line += grapheme.text;
    }

private:
    // A part ends after a slash if there is one, else where punctuation allows it, else anywhere.
    std::size_t endOfPart(std::size_t begin, std::size_t width) const {
        std::size_t lastFolder = begin;
        std::size_t lastBreak = begin;
        std::size_t used = graphemes_[begin].width;
        for (std::size_t end = begin + 1; end < graphemes_.size(); ++end) {
            const Grapheme& previous = graphemes_[end - 1];
            if (previous.text == "/")
                lastFolder = end;
            if (mayBreakBetween(previous, graphemes_[end]))
                lastBreak = end;
            used += graphemes_[end].width;
            if (used > width)
                return lastFolder > begin ? lastFolder : lastBreak > begin ? lastBreak : end;
        }
        return graphemes_.size();
    }

    std::vector<Grapheme> graphemes_;
    std::size_t width_ = 0;
};

// Fills lines with pieces. A piece is broken only if it is wider than a line.
class LineFiller {
public:
    explicit LineFiller(std::size_t width) : width_(width) {}

    void add(const Grapheme& grapheme) {
        if (grapheme.text == " ") {
            hasSpace_ = true;
            return;
        }
        if (piece_.isEmpty() || mayBreakBefore(grapheme)) {
            endPiece();
            hasSpaceBeforePiece_ = hasSpace_;
        } else if (hasSpace_) {
            piece_.add({.text = " ", .base = U' ', .width = 1, .isWide = false});
        }
        piece_.add(grapheme);
        hasSpace_ = false;
    }

    void endLine() {
        endPiece();
        breakLine();
        hasSpace_ = false;
    }

    std::vector<std::string> take() { return std::move(lines_); }

private:
    bool mayBreakBefore(const Grapheme& grapheme) const {
        if (hasSpace_)
            return !grapheme.isWide || mayStartLine(grapheme);
        const bool isBesideWide = grapheme.isWide || piece_.last().isWide;
        return isBesideWide && mayBreakBetween(piece_.last(), grapheme);
    }

    void endPiece() {
        const std::size_t gap = hasSpaceBeforePiece_ && !line_.empty() ? 1 : 0;
        if (lineWidth_ + gap + piece_.width() <= width_) {
            line_.append(gap, ' ');
            lineWidth_ += gap;
            append(piece_);
        } else {
            for (const Piece& part : piece_.split(width_)) {
                if (!line_.empty())
                    breakLine();
                append(part);
            }
        }
        piece_ = {};
    }

    void breakLine() {
        lines_.push_back(std::exchange(line_, {}));
        lineWidth_ = 0;
    }

    void append(const Piece& piece) {
        piece.appendTo(line_);
        lineWidth_ += piece.width();
    }

    std::size_t width_;
    std::vector<std::string> lines_;
    std::string line_;
    std::size_t lineWidth_ = 0;
    Piece piece_;
    bool hasSpaceBeforePiece_ = false;
    bool hasSpace_ = false; // before the next grapheme
};

} // namespace

std::vector<std::string> wrapText(std::string_view text, std::size_t width) {
    LineFiller filler(width);
    for (std::size_t position = 0; position < text.size();) {
        const Grapheme grapheme = nextGrapheme(text, position);
        if (grapheme.text == "\n")
            filler.endLine();
        else
            filler.add(grapheme);
    }
    filler.endLine();
    return filler.take();
}

std::string cutText(std::string_view text, std::size_t width) {
    if (displayWidth(text) <= width)
        return std::string(text);
    std::size_t end = 0;
    for (std::size_t used = 0, position = 0;; end = position) {
        used += nextGrapheme(text, position).width;
        if (used >= width) // no column is left for the ellipsis
            break;
    }
    const auto isSpace = [](char byte) { return byte == ' '; };
    return boost::trim_right_copy_if(std::string(text.substr(0, end)), isSpace) + "…";
}

std::vector<std::size_t> shareWidth(const std::vector<std::size_t>& natural,
                                    std::size_t available) {
    std::vector<std::size_t> order(natural.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return natural[index]; });

    // Narrowest first: what a column leaves of its share goes to the wider ones.
    std::vector<std::size_t> widths(natural.size());
    std::size_t remaining = order.size();
    for (const std::size_t index : order) {
        const std::size_t share = std::max<std::size_t>(available / remaining--, 1);
        widths[index] = std::min(natural[index], share);
        available -= std::min(available, widths[index]);
    }
    return widths;
}

} // namespace refdoc
