#include "tools/refdoc/terminal/TextLayout.hpp"

#include "tools/refdoc/terminal/DisplayText.hpp"

#include <algorithm>
#include <utility>

namespace refdoc {

namespace {

// What may not start a line.
constexpr std::u32string_view kClosingPunctuation =
    U"、。，．）」』】〉》〕］｝！？：；ー・ぁぃぅぇぉっゃゅょァィゥェォッャュョ々";

// A character with what combines with it.
struct Cluster {
    std::u16string_view text;
    std::size_t width = 0;
    bool isSpace = false;
    bool isWide = false;
    bool isClosing = false;
};

Cluster nextCluster(std::u16string_view text, std::size_t& position) {
    const std::size_t start = position;
    const char32_t base = nextCodePoint(text, position);
    Cluster cluster;
    cluster.width = columnsOf(base);
    cluster.isSpace = base == U' ';
    cluster.isWide = cluster.width == 2;
    cluster.isClosing = kClosingPunctuation.find(base) != kClosingPunctuation.npos;
    for (std::size_t next = position; next < text.size(); position = next) {
        if (columnsOf(nextCodePoint(text, next)) != 0)
            break;
    }
    cluster.text = text.substr(start, position - start);
    return cluster;
}

// Fills lines with pieces, which are what is not broken unless it must be.
class LineFiller {
public:
    explicit LineFiller(std::size_t width) : width_(width) {}

    void add(const Cluster& cluster) {
        if (cluster.isSpace) {
            endPiece();
            spaceBefore_ = true;
            return;
        }
        const bool mayBreakHere = (cluster.isWide || lastWasWide_) && !cluster.isClosing;
        if (mayBreakHere)
            endPiece();
        piece_.push_back(cluster);
        lastWasWide_ = cluster.isWide;
    }

    void endLine() {
        endPiece();
        lines_.push_back(std::exchange(line_, {}));
        lineWidth_ = 0;
        spaceBefore_ = false;
    }

    std::vector<std::u16string> take() { return std::move(lines_); }

private:
    void endPiece() {
        lastWasWide_ = false;
        if (piece_.empty())
            return;
        std::size_t pieceWidth = 0;
        for (const Cluster& cluster : piece_)
            pieceWidth += cluster.width;
        const std::size_t gap = spaceBefore_ && !line_.empty() ? 1 : 0;
        if (!line_.empty() && lineWidth_ + gap + pieceWidth > width_)
            breakLine();
        else if (gap > 0)
            append(u" ", 1);
        for (const Cluster& cluster : std::exchange(piece_, {})) {
            if (!line_.empty() && lineWidth_ + cluster.width > width_)
                breakLine();
            append(cluster.text, cluster.width);
        }
        spaceBefore_ = false;
    }

    void breakLine() {
        lines_.push_back(std::exchange(line_, {}));
        lineWidth_ = 0;
    }

    void append(std::u16string_view text, std::size_t width) {
        line_ += text;
        lineWidth_ += width;
    }

    std::size_t width_;
    std::vector<std::u16string> lines_;
    std::u16string line_;
    std::size_t lineWidth_ = 0;
    std::vector<Cluster> piece_;
    bool spaceBefore_ = false;
    bool lastWasWide_ = false;
};

} // namespace

std::vector<std::u16string> wrapText(std::u16string_view text, std::size_t width) {
    LineFiller filler(width);
    for (std::size_t position = 0; position < text.size();) {
        if (text[position] == u'\n') {
            filler.endLine();
            ++position;
        } else {
            filler.add(nextCluster(text, position));
        }
    }
    filler.endLine();
    return filler.take();
}

std::u16string cutText(std::u16string_view text, std::size_t width) {
    if (displayWidth(text) <= width)
        return std::u16string(text);
    std::u16string shortened;
    std::size_t used = 0;
    for (std::size_t position = 0; position < text.size();) {
        const Cluster cluster = nextCluster(text, position);
        if (used + cluster.width + 1 > width)
            break;
        shortened += cluster.text;
        used += cluster.width;
    }
    shortened.erase(shortened.find_last_not_of(u' ') + 1);
    return shortened + u'…';
}

std::vector<std::size_t> shareWidth(const std::vector<std::size_t>& natural,
                                    std::size_t available) {
    std::vector<std::size_t> order(natural.size());
    for (std::size_t index = 0; index < order.size(); ++index)
        order[index] = index;
    std::ranges::stable_sort(order, {}, [&](std::size_t index) { return natural[index]; });

    // From the narrowest on: what one does not use of its share goes to the wider ones.
    std::vector<std::size_t> widths(natural.size());
    std::size_t waiting = order.size();
    for (const std::size_t index : order) {
        const std::size_t share = std::max<std::size_t>(available / waiting--, 1);
        widths[index] = std::clamp<std::size_t>(natural[index], 1, share);
        available -= std::min(available, widths[index]);
    }
    return widths;
}

} // namespace refdoc
