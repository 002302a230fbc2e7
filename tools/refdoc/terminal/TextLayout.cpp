#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <boost/algorithm/string/trim.hpp>

#include <algorithm>
#include <numeric>
#include <utility>

namespace refdoc {

namespace {

// Punctuation and small kana that must not start a line.
constexpr std::u32string_view kNotAtLineStart =
    U"、。，．）」』】〉》〕］｝！？：；ー・ぁぃぅぇぉっゃゅょァィゥェォッャュョ々";

bool mayStartLine(const Grapheme& grapheme) {
    return kNotAtLineStart.find(grapheme.base) == std::u32string_view::npos;
}

// Fills lines with pieces. A piece is broken only if it is wider than a line.
class LineFiller {
public:
    explicit LineFiller(std::size_t width) : width_(width) {}

    void add(const Grapheme& grapheme) {
        if (grapheme.text == " ") {
            endPiece();
            spaceBefore_ = true;
            return;
        }
        const bool isBesideWide = grapheme.isWide || (!piece_.empty() && piece_.back().isWide);
        if (isBesideWide && mayStartLine(grapheme))
            endPiece();
        piece_.push_back(grapheme);
        pieceWidth_ += grapheme.width;
    }

    void endLine() {
        endPiece();
        breakLine();
        spaceBefore_ = false;
    }

    std::vector<std::string> take() { return std::move(lines_); }

private:
    void endPiece() {
        if (piece_.empty())
            return;
        const std::size_t gap = spaceBefore_ && !line_.empty() ? 1 : 0;
        if (!line_.empty() && lineWidth_ + gap + pieceWidth_ > width_)
            breakLine();
        else
            append(std::string_view(" ", gap), gap);
        for (const Grapheme& grapheme : piece_) {
            if (!line_.empty() && lineWidth_ + grapheme.width > width_)
                breakLine();
            append(grapheme.text, grapheme.width);
        }
        piece_.clear();
        pieceWidth_ = 0;
        spaceBefore_ = false;
    }

    void breakLine() {
        lines_.push_back(std::exchange(line_, {}));
        lineWidth_ = 0;
    }

    void append(std::string_view text, std::size_t width) {
        line_ += text;
        lineWidth_ += width;
    }

    std::size_t width_;
    std::vector<std::string> lines_;
    std::string line_;
    std::size_t lineWidth_ = 0;
    std::vector<Grapheme> piece_;
    std::size_t pieceWidth_ = 0;
    bool spaceBefore_ = false;
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
