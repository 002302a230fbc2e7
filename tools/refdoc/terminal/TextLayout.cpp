#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <boost/algorithm/string/trim.hpp>
#include <unilbrk.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace refdoc {

namespace {

// Returns for each byte of a text whether a line may end before it by the line breaking algorithm
// of Unicode (UAX #14). It forbids a break before closing punctuation and small kana, and after
// opening punctuation.
std::vector<bool> findBreaks(std::string_view text) {
    std::string breaks(text.size(), UC_BREAK_UNDEFINED);
    u8_possible_linebreaks(reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                           "UTF-8", breaks.data());
    std::vector<bool> isBreak(text.size());
    std::transform(breaks.begin(), breaks.end(), isBreak.begin(), [](char kind) {
        return kind == UC_BREAK_POSSIBLE || kind == UC_BREAK_MANDATORY;
    });
    return isBreak;
}

bool isAscii(std::string_view grapheme) {
    return grapheme.size() == 1; // in UTF-8
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
    std::string_view end() const { return graphemes_.back().text; }

    // Breaks the piece into parts of at most `width` columns, after a slash if it has one.
    // Otherwise, a line may end between two graphemes that could both be separated from an
    // ideograph. If there are none, it ends anywhere.
    std::vector<Piece> split(std::size_t width) const {
        const std::vector<bool> isBreak = findBreaksInWord();
        std::vector<Piece> parts;
        for (std::size_t begin = 0; begin < graphemes_.size();) {
            const std::size_t end = endOfPart(begin, width, isBreak);
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
    // Returns for each grapheme whether a part may begin with it.
    std::vector<bool> findBreaksInWord() const {
        constexpr std::string_view ideograph = "木";
        std::string spaced;
        for (const Grapheme& grapheme : graphemes_)
            spaced.append(grapheme.text).append(ideograph);
        const std::vector<bool> breaks = findBreaks(spaced);

        std::vector<bool> isBreak{true};
        std::size_t end = 0; // of the grapheme
        for (std::size_t index = 0; index + 1 < graphemes_.size(); ++index) {
            end += graphemes_[index].text.size();
            const bool mayEndLine = breaks[end];
            end += ideograph.size();
            isBreak.push_back(mayEndLine && breaks[end]);
        }
        return isBreak;
    }

    std::size_t endOfPart(std::size_t begin, std::size_t width,
                          const std::vector<bool>& isBreak) const {
        std::size_t end = begin + 1; // a grapheme that is too wide is a part of its own
        std::size_t lastBreak = begin;
        std::size_t lastFolder = begin;
        for (std::size_t used = graphemes_[begin].width; end < graphemes_.size(); ++end) {
            used += graphemes_[end].width;
            if (isBreak[end])
                lastBreak = end;
            if (graphemes_[end - 1].text == "/")
                lastFolder = end;
            if (used > width)
                return lastFolder > begin ? lastFolder : lastBreak > begin ? lastBreak : end;
        }
        return end;
    }

    std::vector<Grapheme> graphemes_;
    std::size_t width_ = 0;
};

// Fills lines with pieces. A piece is broken only if it is wider than a line.
class LineFiller {
public:
    explicit LineFiller(std::size_t width) : width_(width) {}

    // Adds a grapheme. `mayBreak` tells whether a line may end before it.
    void add(const Grapheme& grapheme, bool mayBreak) {
        if (grapheme.text == " ") {
            hasSpace_ = true;
            return;
        }
        // Options, paths and names with hyphens stay whole.
        const bool isInAsciiWord =
            !piece_.isEmpty() && !hasSpace_ && isAscii(grapheme.text) && isAscii(piece_.end());
        if (piece_.isEmpty() || (mayBreak && !isInAsciiWord)) {
            endPiece();
            hasSpaceBeforePiece_ = hasSpace_;
        } else if (hasSpace_) {
            piece_.add({" ", 1});
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
    const std::vector<bool> breaks = findBreaks(text);
    LineFiller filler(width);
    std::size_t position = 0;
    for (const Grapheme& grapheme : graphemesOf(text)) {
        if (grapheme.text == "\n")
            filler.endLine();
        else
            filler.add(grapheme, breaks[position]);
        position += grapheme.text.size();
    }
    filler.endLine();
    return filler.take();
}

std::string cutText(std::string_view text, std::size_t width) {
    if (displayWidth(text) <= width)
        return std::string(text);
    std::size_t end = 0;
    std::size_t used = 0;
    for (const Grapheme& grapheme : graphemesOf(text)) {
        used += grapheme.width;
        if (used >= width) // no column is left for the ellipsis
            break;
        end += grapheme.text.size();
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
