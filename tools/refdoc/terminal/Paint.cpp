#include "tools/refdoc/terminal/Paint.hpp"

#include <fmt/color.h>

namespace refdoc {

namespace {

fmt::text_style styleOf(Paint paint) {
    switch (paint) {
    case Paint::Heading: return fmt::emphasis::bold;
    case Paint::Dim: return fmt::emphasis::faint;
    case Paint::Caution: return fmt::fg(fmt::terminal_color::yellow);
    case Paint::Alarm:
    case Paint::Removed: return fmt::fg(fmt::terminal_color::red);
    case Paint::Added: return fmt::fg(fmt::terminal_color::green);
    case Paint::Match: return fmt::emphasis::bold | fmt::emphasis::underline;
    case Paint::Plain: break;
    }
    return {};
}

} // namespace

std::string painted(std::string_view text, Paint paint, bool color) {
    return color && !text.empty() ? fmt::format(styleOf(paint), "{}", text) : std::string(text);
}

} // namespace refdoc
