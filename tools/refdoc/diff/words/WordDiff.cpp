#include "tools/refdoc/diff/words/WordDiff.hpp"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <unordered_map>

namespace refdoc::diff {

namespace {

// Whether so many of the words are common that it is easier to read changes than one text after the
// other.
bool areMany(std::size_t common, std::size_t words) {
    return common > 0 && common * 3 >= words;
}

std::size_t countWords(std::span<const WordToken> tokens) {
    return static_cast<std::size_t>(std::ranges::count(tokens, false, &WordToken::isSpace));
}

} // namespace

std::string_view ellipsis(const std::vector<TextRun>& runs, const TextRun& skipped) {
    if (&skipped == &runs.front())
        return "… ";
    return &skipped == &runs.back() ? " …" : " … ";
}

const std::vector<TextRun>& WordDiff::compare(std::string_view oldText, std::string_view newText) {
    readTokens(oldText, newText);
    findMatches();
    joinChanges();
    addRuns();
    return runs_;
}

void WordDiff::readTokens(std::string_view oldText, std::string_view newText) {
    old_.tokens.clear();
    new_.tokens.clear();
    appendTokens(oldText, old_.tokens);
    appendTokens(newText, new_.tokens);

    std::array<std::byte, 16 * 1024> buffer;
    std::pmr::monotonic_buffer_resource pool(buffer.data(), buffer.size());
    std::pmr::unordered_map<std::string_view, std::size_t> numbers(&pool);
    numbers.reserve(old_.tokens.size() + new_.tokens.size());
    for (Side* side : {&old_, &new_}) {
        side->numbers.clear();
        for (const WordToken& token : side->tokens)
            side->numbers.push_back(numbers.try_emplace(token.text, numbers.size()).first->second);
    }
    counts_.assign(numbers.size(), 0);
}

// The first and the last match are the common beginning and end, which may be empty.
void WordDiff::findMatches() {
    const std::size_t oldSize = old_.numbers.size();
    const std::size_t newSize = new_.numbers.size();
    const std::size_t shorter = std::min(oldSize, newSize);
    std::size_t begin = 0;
    while (begin < shorter && old_.numbers[begin] == new_.numbers[begin])
        ++begin;
    std::size_t common = 0; // at the end
    while (common < shorter - begin &&
           old_.numbers[oldSize - common - 1] == new_.numbers[newSize - common - 1])
        ++common;

    const Match first{0, 0, begin};
    const Match last{oldSize - common, newSize - common, common};
    matches_.assign(1, first);
    addMatchesBetween(first, last);
    matches_.push_back(last);
}

void WordDiff::addMatchesBetween(const Match& first, const Match& last) {
    const Part oldPart = partOf(old_, first.oldEnd(), last.oldBegin);
    const Part newPart = partOf(new_, first.newEnd(), last.newBegin);
    const std::size_t fewerWords = std::min(countWords(oldPart.tokens), countWords(newPart.tokens));
    if (!areMany(countCommonWords(oldPart, newPart), fewerWords))
        return;

    const auto begin = static_cast<std::ptrdiff_t>(matches_.size());
    script_.findMatches(oldPart.numbers, newPart.numbers, matches_);
    std::size_t kept = 0;
    std::for_each(matches_.begin() + begin, matches_.end(), [&](Match& match) {
        kept += countWords(newPart.tokens.subspan(match.newBegin, match.size));
        match.oldBegin += first.oldEnd();
        match.newBegin += first.newEnd();
    });
    if (!areMany(kept, fewerWords))
        matches_.erase(matches_.begin() + begin, matches_.end());
}

WordDiff::Part WordDiff::partOf(const Side& side, std::size_t begin, std::size_t end) {
    return {std::span(side.tokens).subspan(begin, end - begin),
            std::span(side.numbers).subspan(begin, end - begin)};
}

std::size_t WordDiff::countCommonWords(const Part& oldPart, const Part& newPart) {
    for (std::size_t at = 0; at < oldPart.tokens.size(); ++at)
        counts_[oldPart.numbers[at]] += oldPart.tokens[at].isSpace ? 0 : 1;
    std::size_t common = 0;
    for (const std::size_t number : newPart.numbers) {
        if (counts_[number] > 0) {
            --counts_[number];
            ++common;
        }
    }
    return common;
}

// Removes the matches that are only spaces between two replaced words.
void WordDiff::joinChanges() {
    std::size_t kept = 1;
    for (std::size_t next = 1; next < matches_.size(); ++next) {
        const bool isJoint = next + 1 < matches_.size() && isSpace(matches_[next]) &&
                             isReplacement(matches_[kept - 1], matches_[next]) &&
                             isReplacement(matches_[next], matches_[next + 1]);
        if (!isJoint)
            matches_[kept++] = matches_[next];
    }
    matches_.resize(kept);
}

bool WordDiff::isReplacement(const Match& left, const Match& right) const {
    return left.oldEnd() < right.oldBegin && left.newEnd() < right.newBegin;
}

bool WordDiff::isSpace(const Match& match) const {
    return match.size == 1 && new_.tokens[match.newBegin].isSpace;
}

void WordDiff::addRuns() {
    runs_.clear();
    std::size_t oldEnd = 0;
    std::size_t newEnd = 0;
    for (const Match& match : matches_) {
        addRun(TextRun::Fate::Removed, old_.tokens, oldEnd, match.oldBegin);
        addRun(TextRun::Fate::Added, new_.tokens, newEnd, match.newBegin);
        addKept(match);
        oldEnd = match.oldEnd();
        newEnd = match.newEnd();
    }
}

void WordDiff::addKept(const Match& match) {
    const std::size_t begin = match.newBegin;
    const std::size_t end = match.newEnd();
    // Skipping a few words would save no space.
    if (match.size / 2 <= context_) {
        addRun(TextRun::Fate::Kept, new_.tokens, begin, end);
        return;
    }
    const bool isLast = end == new_.tokens.size() && match.oldEnd() == old_.tokens.size();
    const std::size_t skipBegin = begin + (runs_.empty() ? 0 : context_);
    const std::size_t skipEnd = end - (isLast ? 0 : context_);
    addRun(TextRun::Fate::Kept, new_.tokens, begin, skipBegin);
    addRun(TextRun::Fate::Skipped, new_.tokens, skipBegin, skipEnd);
    addRun(TextRun::Fate::Kept, new_.tokens, skipEnd, end);
}

void WordDiff::addRun(TextRun::Fate fate, const std::vector<WordToken>& tokens, std::size_t begin,
                      std::size_t end) {
    if (begin == end)
        return;
    const char* first = tokens[begin].text.data();
    const std::string_view last = tokens[end - 1].text;
    runs_.push_back({fate, {first, static_cast<std::size_t>(last.data() + last.size() - first)}});
}

} // namespace refdoc::diff
