#include "tools/refdoc/terminal/Paint.hpp"

#include <fmt/format.h>

namespace refdoc {

namespace {

std::string_view sequenceOf(Paint paint) {
    switch (paint) {
    case Paint::Heading: return "\x1b[1m";
    case Paint::Dim: return "\x1b[2m";
    case Paint::Caution: return "\x1b[33m";
    case Paint::Alarm: return "\x1b[31m";
    case Paint::Plain: break;
    }
    return "";
}

} // namespace

std::string painted(std::string_view text, Paint paint, bool color) {
    if (!color || paint == Paint::Plain || text.empty())
        return std::string(text);
    return fmt::format("{}{}\x1b[0m", sequenceOf(paint), text);
}

} // namespace refdoc
