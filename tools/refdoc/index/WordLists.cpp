#include "tools/refdoc/index/WordLists.hpp"

#include <algorithm>
#include <string_view>
#include <utility>

namespace refdoc::site {

namespace {

// The digits of 0 and 1, which begin the numbers of a row.
constexpr char kPartOfWord = '#';
constexpr char kWholeWord = '$';

// Longer lists of numbers are divided, so that a part has room for them.
constexpr std::size_t kLargestPiece = 4'000;

// The numbers and occurrences of records with a word, in pieces.
class NumberLists {
public:
    NumberLists(const Words& words, const std::vector<std::uint32_t>& numbers) : numbers_(numbers) {
        pieces_.reserve(words.all().size());
        firstPieces_.reserve(words.all().size() + 1);
        for (const Word& word : words.all()) {
            firstPieces_.push_back(pieces_.size());
            addPieces(word);
        }
        firstPieces_.push_back(pieces_.size());
    }

    template <typename Use>
    void forEachPiece(std::size_t word, Use use) const {
        for (std::size_t piece = firstPieces_[word]; piece < firstPieces_[word + 1]; ++piece)
            use(pieces_[piece]);
    }

private:
    // A piece has the differences of the numbers.
    void addPieces(const Word& word) {
        std::uint32_t last = 0;
        pieces_.emplace_back();
        for (const auto& [record, occurrences] : word.postings) {
            if (pieces_.back().size() > kLargestPiece) {
                pieces_.emplace_back();
                last = 0;
            }
            const std::uint32_t number = numbers_[record];
            appendNumber(number - std::exchange(last, number), pieces_.back());
            appendNumber(occurrences.code(), pieces_.back());
        }
    }

    const std::vector<std::uint32_t>& numbers_; // of the records
    std::vector<std::string> pieces_;
    std::vector<std::size_t> firstPieces_; // by word, and the count of the pieces
};

} // namespace

WordList writeWordList(const WordEnds& ends, const Words& words,
                       const std::vector<std::uint32_t>& numbers, const AddFile& addFile) {
    const NumberLists lists(words, numbers);
    WordList list;
    IndexTable table("list", kLargestPart, addFile);
    std::string row;
    for (std::size_t end = 0; end < ends.size(); ++end) {
        lists.forEachPiece(ends.at(end).word(), [&](const std::string& piece) {
            row = ends.at(end).isWholeWord() ? kWholeWord : kPartOfWord;
            row += piece;
            const std::size_t part = table.add(ends.keyAt(end), row);
            list.partStarts.resize(part + 1, end);
        });
    }
    list.directories = table.finish();
    return list;
}

std::string writePhrases(const Words& phrases, const std::vector<std::uint32_t>& numbers,
                         const AddFile& addFile) {
    const NumberLists lists(phrases, numbers);
    std::vector<std::size_t> order(phrases.all().size());
    for (std::size_t phrase = 0; phrase < order.size(); ++phrase)
        order[phrase] = phrase;
    std::ranges::sort(order, {}, [&](std::size_t phrase) { return phrases.all()[phrase].text; });
    IndexTable table("phrase", kLargestPart, addFile);
    for (const std::size_t phrase : order) {
        lists.forEachPiece(phrase, [&](const std::string& piece) {
            table.add(phrases.all()[phrase].text, kWholeWord + piece);
        });
    }
    return table.finish();
}

} // namespace refdoc::site
