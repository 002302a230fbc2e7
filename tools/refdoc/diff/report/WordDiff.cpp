#include "tools/refdoc/diff/report/WordDiff.hpp"

#include <algorithm>
#include <array>
#include <memory_resource>
#include <span>
#include <unordered_map>

namespace refdoc::diff {

namespace {

// Texts with fewer common words are easier to read as a whole, one after the other.
constexpr std::size_t kLeastCommonPercentage = 30;

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
    oldTokens_.clear();
    newTokens_.clear();
    appendTokens(oldText, oldTokens_);
    appendTokens(newText, newTokens_);

    std::array<std::byte, 16 * 1024> buffer;
    std::pmr::monotonic_buffer_resource pool(buffer.data(), buffer.size());
    std::pmr::unordered_map<std::string_view, std::size_t> numbers(&pool);
    numbers.reserve(oldTokens_.size() + newTokens_.size());
    const auto readNumbers = [&](const std::vector<WordToken>& tokens,
                                 std::vector<std::size_t>& result) {
        result.clear();
        for (const WordToken& token : tokens)
            result.push_back(numbers.try_emplace(token.text, numbers.size()).first->second);
    };
    readNumbers(oldTokens_, oldNumbers_);
    readNumbers(newTokens_, newNumbers_);
    counts_.assign(numbers.size(), 0);
}

// The first and the last match are the common beginning and end, which may be empty.
void WordDiff::findMatches() {
    const std::size_t oldSize = oldNumbers_.size();
    const std::size_t newSize = newNumbers_.size();
    const std::size_t shorter = std::min(oldSize, newSize);
    std::size_t begin = 0;
    while (begin < shorter && oldNumbers_[begin] == newNumbers_[begin])
        ++begin;
    std::size_t common = 0; // at the end
    while (common < shorter - begin &&
           oldNumbers_[oldSize - common - 1] == newNumbers_[newSize - common - 1])
        ++common;

    matches_.assign(1, {0, 0, begin});
    if (haveMuchInCommon(begin, oldSize - common, newSize - common)) {
        script_.findMatches(std::span(oldNumbers_).subspan(begin, oldSize - common - begin),
                            std::span(newNumbers_).subspan(begin, newSize - common - begin),
                            matches_);
        std::for_each(matches_.begin() + 1, matches_.end(), [&](Match& match) {
            match.oldBegin += begin;
            match.newBegin += begin;
        });
    }
    matches_.push_back({oldSize - common, newSize - common, common});
}

// Compares the numbers of words only, in any order.
bool WordDiff::haveMuchInCommon(std::size_t begin, std::size_t oldEnd, std::size_t newEnd) {
    std::size_t oldWords = 0;
    std::size_t newWords = 0;
    std::size_t common = 0;
    for (std::size_t at = begin; at < oldEnd; ++at) {
        if (!oldTokens_[at].isSpace) {
            ++counts_[oldNumbers_[at]];
            ++oldWords;
        }
    }
    for (std::size_t at = begin; at < newEnd; ++at) {
        if (newTokens_[at].isSpace)
            continue;
        ++newWords;
        if (counts_[newNumbers_[at]] > 0) {
            --counts_[newNumbers_[at]];
            ++common;
        }
    }
    return common > 0 && common * 100 >= std::min(oldWords, newWords) * kLeastCommonPercentage;
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
    return match.size == 1 && newTokens_[match.newBegin].isSpace;
}

void WordDiff::addRuns() {
    runs_.clear();
    std::size_t oldEnd = 0;
    std::size_t newEnd = 0;
    for (const Match& match : matches_) {
        addRun(TextRun::Fate::Removed, oldTokens_, oldEnd, match.oldBegin);
        addRun(TextRun::Fate::Added, newTokens_, newEnd, match.newBegin);
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
        addRun(TextRun::Fate::Kept, newTokens_, begin, end);
        return;
    }
    const bool isLast = end == newTokens_.size() && match.oldEnd() == oldTokens_.size();
    const std::size_t skipBegin = begin + (runs_.empty() ? 0 : context_);
    const std::size_t skipEnd = end - (isLast ? 0 : context_);
    addRun(TextRun::Fate::Kept, newTokens_, begin, skipBegin);
    addRun(TextRun::Fate::Skipped, newTokens_, skipBegin, skipEnd);
    addRun(TextRun::Fate::Kept, newTokens_, skipEnd, end);
}

void WordDiff::addRun(TextRun::Fate fate, const std::vector<WordToken>& tokens, std::size_t begin,
                      std::size_t end) {
    if (begin == end)
        return;
    const char* first = tokens[begin].text.data();
    const std::string_view last = tokens[end - 1].text;
    runs_.push_back(
        {fate, {first, static_cast<std::size_t>(last.data() + last.size() - first)}});
}

} // namespace refdoc::diff
