#include "tools/refdoc/index/BestRecords.hpp"

#include "tools/refdoc/search/CodePoints.hpp"

#include <algorithm>

namespace refdoc::site {

namespace {

constexpr std::ptrdiff_t kFewParts = 4; // of "list", which a search loads; also in search.js

constexpr std::uint32_t recordIn(std::uint64_t order) {
    return static_cast<std::uint32_t>(order);
}

class TextFinder {
public:
    TextFinder(const WordEnds& ends, const std::vector<std::size_t>& partStarts,
               const IndexedRecords& records)
        : ends_(ends), partStarts_(partStarts), records_(records) {}

    std::vector<BestText> find() {
        for (std::size_t begin = 0; begin < ends_.size();) {
            const std::size_t end = ends_.groupEnd(begin, ends_.size(), 1);
            if (isFrequent(begin, end))
                addText(begin, end, 1);
            begin = end;
        }
        return std::move(texts_);
    }

private:
    // Adds the text of a group, the ends that begin with it, and all longer texts of the group.
    // Returns the best records for any shorter text that the ends begin with. That these come from
    // the longer texts keeps the time in proportion to the number of ends.
    BestRecords addText(std::size_t begin, std::size_t end, std::size_t size) {
        const std::u16string_view text = ends_.keyAt(begin).substr(0, size);
        const std::size_t position = texts_.size();
        const bool isCharacter = !isHighSurrogate(text.back());
        if (isCharacter)
            texts_.push_back({text});
        std::size_t next = begin;
        while (next < end && ends_.keyAt(next).size() == size)
            ++next;
        BestRecords longer = addLongerTexts(next, end, size + 1);
        if (isCharacter) {
            texts_[position].records = longer;
            addEndsWithText(begin, next, text, texts_[position].records);
        }
        addEnds(begin, next, longer);
        return longer;
    }

    BestRecords addLongerTexts(std::size_t begin, std::size_t end, std::size_t size) {
        BestRecords best;
        while (begin < end) {
            const std::size_t next = ends_.groupEnd(begin, end, size);
            if (isFrequent(begin, next))
                best.add(addText(begin, next, size));
            else
                addEnds(begin, next, best);
            begin = next;
        }
        return best;
    }

    bool isFrequent(std::size_t begin, std::size_t end) const {
        return std::ranges::lower_bound(partStarts_, end) -
                   std::ranges::lower_bound(partStarts_, begin) >=
               kFewParts;
    }

    // Adds the records of word ends for a text that more characters follow.
    void addEnds(std::size_t begin, std::size_t end, BestRecords& best) const {
        for (std::size_t at = begin; at < end; ++at) {
            const Word& word = ends_.wordAt(at);
            addRecords(word, {word.isOfLetters, ends_.at(at).isWholeWord(), /*isAtEnd=*/false},
                       best);
        }
    }

    // Adds the records of word ends for a text that they may consist of.
    void addEndsWithText(std::size_t begin, std::size_t end, std::u16string_view text,
                         BestRecords& best) const {
        for (std::size_t at = begin; at < end; ++at) {
            const Word& word = ends_.wordAt(at);
            const TextInWord textInWord{word.isOfLetters, ends_.at(at).isWholeWord(),
                                        ends_.textAt(at).size() == text.size()};
            // Whether a letter follows is not known here.
            if (!word.isOfLetters && !textInWord.isAtStart && textInWord.isAtEnd)
                addMatches(word, text, best);
            else
                addRecords(word, textInWord, best);
        }
    }

    void addRecords(const Word& word, const TextInWord& text, BestRecords& best) const {
        const MatchesByCode& matches = matchesOf(text);
        for (const auto& [record, occurrences] : word.postings)
            best.add(matches[occurrences.code()], records_.classOf(record), record);
    }

    void addMatches(const Word& word, std::u16string_view text, BestRecords& best) const {
        for (const auto& [record, occurrences] : word.postings)
            best.add(records_.matchOf(text, record), records_.classOf(record), record);
    }

    const WordEnds& ends_;
    const std::vector<std::size_t>& partStarts_;
    const IndexedRecords& records_;
    std::vector<BestText> texts_;
};

} // namespace

void BestRecords::add(const BestRecords& others) {
    for (std::size_t at = 0; at < others.count_; ++at)
        addOrder(others.orders_[at]);
}

void BestRecords::insert(std::uint64_t order) {
    const auto end = orders_.begin() + static_cast<std::ptrdiff_t>(count_);
    auto old = std::find_if(orders_.begin(), end, [&](std::uint64_t other) {
        return recordIn(other) == recordIn(order);
    });
    if (old != end && *old <= order)
        return;
    if (old == end && count_ < kMostRecords)
        ++count_;
    else if (old == end)
        --old; // the worst record leaves the list
    const auto position = std::lower_bound(orders_.begin(), old, order);
    std::move_backward(position, old, old + 1);
    *position = order;
}

std::vector<BestText> findBestTexts(const WordEnds& ends,
                                    const std::vector<std::size_t>& partStarts,
                                    const IndexedRecords& records) {
    return TextFinder(ends, partStarts, records).find();
}

} // namespace refdoc::site
