#include "tools/refdoc/index/WordLists.hpp"

#include "tools/refdoc/index/words/TextOrder.hpp"

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
        pieceStarts_.reserve(words.all().size() + 1);
        firstPieces_.reserve(words.all().size() + 1);
        for (const Word& word : words.all()) {
            firstPieces_.push_back(pieceStarts_.size());
            addPieces(word);
        }
        firstPieces_.push_back(pieceStarts_.size());
        pieceStarts_.push_back(pieces_.size());
    }

    template <typename Use>
    void forEachPiece(std::size_t word, Use use) const {
        for (std::size_t piece = firstPieces_[word]; piece < firstPieces_[word + 1]; ++piece) {
            const std::size_t start = pieceStarts_[piece];
            use(std::string_view(pieces_).substr(start, pieceStarts_[piece + 1] - start));
        }
    }

private:
    // A piece has the differences of the numbers.
    void addPieces(const Word& word) {
        std::uint32_t last = 0;
        pieceStarts_.push_back(pieces_.size());
        for (const auto& [record, occurrences] : word.postings) {
            if (pieces_.size() - pieceStarts_.back() > kLargestPiece) {
                pieceStarts_.push_back(pieces_.size());
                last = 0;
            }
            const std::uint32_t number = numbers_[record];
            appendNumber(number - std::exchange(last, number), pieces_);
            appendNumber(occurrences.code(), pieces_);
        }
    }

    const std::vector<std::uint32_t>& numbers_; // of the records
    std::string pieces_;                        // one after the other
    std::vector<std::size_t> pieceStarts_;      // in pieces_, and its size
    std::vector<std::size_t> firstPieces_; // by word, in pieceStarts_; and the number of all pieces
};

} // namespace

WordList writeWordList(const WordEnds& ends, const Words& words,
                       const std::vector<std::uint32_t>& numbers, const AddFile& addFile) {
    const NumberLists lists(words, numbers);
    WordList list;
    IndexTable table("list", kLargestPart, addFile);
    std::string row;
    for (std::size_t end = 0; end < ends.size(); ++end) {
        lists.forEachPiece(ends.at(end).word, [&](std::string_view piece) {
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
    IndexTable table("phrase", kLargestPart, addFile);
    std::string row;
    const std::vector<Word>& all = phrases.all();
    for (const std::uint32_t phrase :
         sortedPositions(all.size(), [&](std::size_t at) { return all[at].text; })) {
        lists.forEachPiece(phrase, [&](std::string_view piece) {
            row = kWholeWord;
            row += piece;
            table.add(all[phrase].text, row);
        });
    }
    return table.finish();
}

} // namespace refdoc::site
