#include "tools/refdoc/check/fix/Diff.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Paint.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <vector>

namespace refdoc::check {

namespace {

constexpr std::size_t kContext = 3; // lines before and after a change

// The lines of a text, each with its line feed if it has one.
std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t feed = std::min(text.find('\n'), text.size() - 1);
        lines.push_back(text.substr(0, feed + 1));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

// Returns a file name after "a/" or "b/", in quotation marks if it has characters that need them.
std::string nameWith(std::string_view prefix, std::string_view name) {
    std::string path(prefix);
    path += name.substr(name.starts_with('/') ? 1 : 0);
    const auto isSpecial = [](char byte) {
        return (byte >= 0 && byte < ' ') || byte == '\x7F' || byte == '"' || byte == '\\';
    };
    if (std::ranges::none_of(path, isSpecial))
        return path;
    std::string quoted = "\"";
    for (const char byte : path) {
        if (isSpecial(byte))
            fmt::format_to(std::back_inserter(quoted), "\\{:03o}", byte);
        else
            quoted += byte;
    }
    return quoted + '"';
}

// A line of a file header, where a tab ends a name with spaces.
std::string headerLine(std::string_view mark, const std::string& name) {
    return fmt::format("{} {}{}", mark, name, name.find(' ') == std::string::npos ? "" : "\t");
}

class DiffPrinter {
public:
    DiffPrinter(const DiffSides& sides, DiffStyle style)
        : sides_(sides), style_(style), old_(linesOf(sides.before)), new_(linesOf(sides.after)) {}

    std::string print() {
        printNames();
        for (std::size_t first = nextChange(0); first < old_.size();) {
            std::size_t end = first + 1; // of the changes in one hunk
            std::size_t next = nextChange(end);
            for (; next < old_.size() && next - end <= 2 * kContext; next = nextChange(end))
                end = next + 1;
            printHunk(first - std::min(first, kContext), std::min(end + kContext, old_.size()));
            first = next;
        }
        return std::move(diff_);
    }

private:
    bool isChanged(std::size_t line) const { return old_[line] != new_[line]; }

    std::size_t nextChange(std::size_t line) const {
        while (line < old_.size() && !isChanged(line))
            ++line;
        return line;
    }

    void printNames() {
        const std::string oldName = nameWith("a/", sides_.oldName);
        const std::string newName = nameWith("b/", sides_.newName);
        printLine(fmt::format("diff --git {} {}", oldName, newName), Paint::Heading);
        if (sides_.oldName != sides_.newName) {
            printLine("rename from " + nameWith("", sides_.oldName), Paint::Heading);
            printLine("rename to " + nameWith("", sides_.newName), Paint::Heading);
        }
        if (sides_.before != sides_.after) {
            printLine(headerLine("---", oldName), Paint::Heading);
            printLine(headerLine("+++", newName), Paint::Heading);
        }
    }

    void printHunk(std::size_t first, std::size_t end) {
        printLine(fmt::format("@@ -{0},{1} +{0},{1} @@", first + 1, end - first), Paint::Dim);
        while (first < end) {
            if (!isChanged(first)) {
                printContent(' ', old_[first++], Paint::Plain);
                continue;
            }
            const std::size_t start = first;
            for (; first < end && isChanged(first); ++first)
                printContent('-', old_[first], Paint::Removed);
            for (std::size_t line = start; line < first; ++line)
                printContent('+', new_[line], Paint::Added);
        }
    }

    void printContent(char mark, std::string_view line, Paint paint) {
        const bool hasFeed = line.ends_with('\n');
        line.remove_suffix(hasFeed ? 1 : 0);
        printLine(fmt::format("{}{}", mark, line), paint);
        if (!hasFeed)
            printLine("\\ No newline at end of file", Paint::Plain);
    }

    void printLine(std::string_view line, Paint paint) {
        diff_ += painted(style_.isForTerminal ? visibleText(fl::i18n::to_ustring(line)) : line,
                         paint, style_.color);
        diff_ += '\n';
    }

    const DiffSides& sides_;
    DiffStyle style_;
    std::vector<std::string_view> old_;
    std::vector<std::string_view> new_;
    std::string diff_;
};

} // namespace

std::string unifiedDiff(const DiffSides& sides, DiffStyle style) {
    return DiffPrinter(sides, style).print();
}

} // namespace refdoc::check
