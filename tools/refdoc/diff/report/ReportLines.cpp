#include "tools/refdoc/diff/report/ReportLines.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/TextLayout.hpp"

#include <algorithm>
#include <limits>

namespace refdoc::diff {

namespace {

constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();
constexpr std::size_t kLabelWidth = 10;
constexpr std::size_t kNarrowestWithLabels = 40; // in columns of a terminal
constexpr std::size_t kNarrowIndent = 2;

} // namespace

ReportLines::ReportLines(const PageSetup& setup)
    : setup_(setup), width_(setup.lineWidth == kUnlimited ? kUnlimited : setup.textWidth) {}

void ReportLines::title(std::string_view text, char rule) {
    if (!text_.empty())
        text_ += '\n';
    Page page(setup_);
    page.title(fl::i18n::to_ustring(text), rule);
    text_ += page.take();
}

void ReportLines::add(std::string_view text, Paint paint) {
    line_ += text;
    if (!parts_.empty() && parts_.back().paint == paint)
        parts_.back().end = line_.size();
    else
        parts_.push_back({line_.size(), paint});
}

void ReportLines::endLine() {
    appendLine(0, 0);
}

void ReportLines::endLine(std::size_t indent, std::string_view label, Paint paint) {
    text_.append(indent, ' ');
    appendPainted(label, paint);
    if (width_ < kNarrowestWithLabels) {
        text_ += '\n';
        appendLine(indent + kNarrowIndent, indent + kNarrowIndent);
    } else {
        appendLine(indent + kLabelWidth, kLabelWidth - label.size());
    }
}

void ReportLines::appendLine(std::size_t indent, std::size_t firstIndent) {
    if (width_ != kUnlimited && displayWidth(line_) > widthAt(indent)) {
        appendWrapped(indent, firstIndent);
    } else {
        text_.append(firstIndent, ' ');
        std::size_t begin = 0;
        for (const Part& part : parts_) {
            appendPainted(std::string_view(line_).substr(begin, part.end - begin), part.paint);
            begin = part.end;
        }
        text_ += '\n';
    }
    line_.clear();
    parts_.clear();
}

void ReportLines::appendWrapped(std::size_t indent, std::size_t firstIndent) {
    std::size_t position = 0; // in the line, which also has the spaces that wrapText() drops
    std::size_t part = 0;
    std::size_t leading = firstIndent;
    for (const std::string& wrapped : wrapText(line_, widthAt(indent))) {
        text_.append(leading, ' ');
        leading = indent;
        std::size_t begin = 0;
        Paint paint = Paint::Plain;
        for (std::size_t at = 0; at < wrapped.size(); ++at, ++position) {
            while (line_[position] != wrapped[at])
                ++position;
            const Paint next = paintAt(position, part);
            if (next == paint)
                continue;
            appendPainted(std::string_view(wrapped).substr(begin, at - begin), paint);
            begin = at;
            paint = next;
        }
        appendPainted(std::string_view(wrapped).substr(begin), paint);
        text_ += '\n';
    }
}

// \param part  the part of an earlier position; moves forward
Paint ReportLines::paintAt(std::size_t position, std::size_t& part) const {
    while (parts_[part].end <= position)
        ++part;
    return parts_[part].paint;
}

void ReportLines::appendPainted(std::string_view text, Paint paint) {
    if (setup_.color && paint != Paint::Plain)
        text_ += painted(text, paint, /*color=*/true);
    else
        text_ += text;
}

std::size_t ReportLines::widthAt(std::size_t indent) const {
    return std::max<std::size_t>(width_ - std::min(width_, indent), 1);
}

} // namespace refdoc::diff
