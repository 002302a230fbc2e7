#include "tools/refdoc/pages/SearchIndex.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/html/Urls.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/search/CaseFolding.hpp"
#include "tools/refdoc/search/CodePoints.hpp"
#include "tools/refdoc/search/Ranking.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/json/array.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace refdoc::site {

using fl::i18n::to_string;
using reference::docparser::IndexEntry;
using reference::docparser::LookupIndex;

namespace {

// search.js has the same numbers.
constexpr std::size_t kMostRowsInPart = 32;
constexpr std::size_t kLongestKey = 24;   // of "list" and "best", in code units
constexpr std::size_t kLongestName = 100; // that has near matches, in code units
constexpr std::ptrdiff_t kFewParts = 4;   // of "list", which a search loads for one text
constexpr std::size_t kBestCount = 20;    // as many as pages show

// The digits of 0 and 1.
constexpr char kPartOfWord = '#';
constexpr char kWholeWord = '$';

// Names are looked up by several lengths, so that small files load less.
constexpr std::size_t kLargestNamePart = 2'000;

// Small files, because a search loads one for nearly each of its results.
constexpr std::size_t kUsualRows = 2'500;

// A row has four strings of any length, and a link that is not longer than this.
constexpr std::size_t kLongestString = 1'500;

constexpr std::array kFields{SearchField::Name, SearchField::Href, SearchField::Purpose};
constexpr int kFieldCount = kFields.size();

// A record of the index with its fields in the form in which they are searched.
struct FoldedRecord {
    std::array<std::u16string, kFields.size()> fields;

    SearchedRecord searched() const {
        return {.name = fields[0], .href = fields[1], .purpose = fields[2]};
    }
};

bool isDeprecated(const IndexEntry& entry) {
    return entry.record->getDeprecated();
}

// Which records come first among equal matches: 0 to 3.
unsigned classOf(const IndexEntry& entry) {
    return (entry.isInstalled ? 0U : 2U) + (isDeprecated(entry) ? 1U : 0U);
}

// Returns the entries in the order of their numbers.
std::vector<IndexEntry> sortedEntries(const LookupIndex& index) {
    std::vector<IndexEntry> entries;
    forEachEntry(index, [&](const IndexEntry& entry) { entries.push_back(entry); });
    std::ranges::stable_sort(entries, {}, [](const IndexEntry& entry) {
        return std::tuple<unsigned, const std::u16string&>(classOf(entry), entry.record->getName());
    });
    return entries;
}

// The largest size of a code unit in JSON, in bytes.
std::size_t sizeInJson(char16_t unit) {
    if (unit < 0x20 || unit == u'"' || unit == u'\\' || (unit >= 0x7F && unit < 0xA0))
        return 6;
    return unit < 0x80 ? 1 : 3;
}

// Returns a string, or the start of one that is too long for a row.
std::u16string_view startOf(std::u16string_view text) {
    std::size_t size = 0;
    for (std::size_t at = 0; at < text.size() && text.size() > kLongestString / 6; ++at) {
        size += sizeInJson(text[at]);
        if (size > kLongestString)
            return text.substr(0, at - (isLowSurrogate(text[at]) ? 1 : 0));
    }
    return text;
}

std::string utf8StartOf(const std::u16string& text) {
    return to_string(std::u16string(startOf(text)));
}

FoldedRecord foldedRecord(const IndexEntry& entry) {
    FoldedRecord folded;
    foldCase(startOf(entry.record->getName()), folded.fields[0]);
    foldCase(startOf(entry.record->getHref()), folded.fields[1]);
    foldCase(startOf(entry.record->getRefPurpose()), folded.fields[2]);
    return folded;
}

std::string rowOf(const IndexEntry& entry, const std::string& page) {
    const reference::property::RefItemLookup& record = *entry.record;
    std::string row = toJsonLine(boost::json::array{
        utf8StartOf(record.getName()), utf8StartOf(record.getHref()),
        utf8StartOf(record.getRefPurpose()),
        to_string(typeText(record.getEntityType(), record.getFunctionType())),
        utf8StartOf(entry.header->getProductName()), html::relativeUrl({}, page)});
    row.pop_back(); // the line feed
    return row;
}

// Writes the rows, and numbers them.
class Rows {
public:
    explicit Rows(const AddFile& addFile) : addFile_(addFile) {}

    // Returns the number of the record.
    std::uint32_t add(const std::string& row) {
        if (count_ == kMostRowsInPart || (count_ > 0 && rows_.size() + row.size() > kUsualRows))
            finish();
        rows_ += (count_ == 0 ? "" : ",\n") + row;
        return static_cast<std::uint32_t>(partCount_ * kMostRowsInPart + count_++);
    }

    // Writes what is left.
    void finish() {
        if (count_ == 0)
            return;
        addPart(addFile_, fmt::format("row{}", partCount_++), '[' + std::exchange(rows_, {}) + ']');
        count_ = 0;
    }

private:
    const AddFile& addFile_;
    std::string rows_;
    std::size_t count_ = 0; // in rows_
    std::size_t partCount_ = 0;
};

// How a word stands in a field, the worst way first. All three fields make a code of six bits.
enum Occurrence : unsigned { None, Inside, AtStart, Whole };

constexpr Occurrence occurrenceIn(unsigned code, SearchField field) {
    return static_cast<Occurrence>((code >> (2 * static_cast<unsigned>(field))) & 3U);
}

constexpr unsigned codeOf(SearchField field, Occurrence occurrence) {
    return occurrence << (2 * static_cast<unsigned>(field));
}

// A record that has a word.
struct Posting {
    std::uint32_t record; // its position in the order of the numbers
    unsigned code;
};

class Word {
public:
    /// \param text  must outlive the word
    Word(std::u16string_view text, bool isOfLetters) : text_(text), isOfLetters_(isOfLetters) {}

    void add(std::uint32_t record, SearchField field, Occurrence occurrence) {
        if (postings_.empty() || postings_.back().record != record)
            postings_.push_back({record, 0});
        unsigned& code = postings_.back().code;
        if (occurrence > occurrenceIn(code, field))
            code += codeOf(field, occurrence) - codeOf(field, occurrenceIn(code, field));
    }

    std::u16string_view text() const { return text_; }
    bool isOfLetters() const { return isOfLetters_; }
    const std::vector<Posting>& postings() const { return postings_; }

private:
    std::u16string_view text_;
    bool isOfLetters_;
    std::vector<Posting> postings_; // by record
};

// Calls a function with the start and the end of each word, and whether it is of letters.
template <typename Visit>
void forEachWord(std::u16string_view text, Visit visit) {
    for (std::size_t start = 0; start < text.size();) {
        std::size_t end = start;
        const bool isOfLetters = isWordCharacter(codePointAt(text, end));
        for (std::size_t next = end;
             end < text.size() && isWordCharacter(codePointAt(text, next)) == isOfLetters;)
            end = next;
        visit(start, end, isOfLetters);
        start = end;
    }
}

// Returns the start of a string that is not longer than a key.
std::u16string_view shortened(std::u16string_view text) {
    const bool cutsPair = text.size() > kLongestKey && isHighSurrogate(text[kLongestKey - 1]);
    return text.substr(0, kLongestKey - (cutsPair ? 1 : 0));
}

// Words with the records that have them.
class Words {
public:
    // Returns a word, which is added if it is new. The reference is valid until the next call.
    Word& at(std::u16string_view text, bool isOfLetters) {
        key_ = text;
        const auto [position, isNew] = positions_.try_emplace(key_, words_.size());
        if (isNew)
            words_.emplace_back(position->first, isOfLetters);
        return words_[position->second];
    }

    const std::vector<Word>& all() const { return words_; }

private:
    std::vector<Word> words_;
    std::unordered_map<std::u16string, std::size_t> positions_; // in words_
    std::u16string key_; // keeps its memory from one word to the next
};

// The end of a word, which all searches for a part of the word find. There are millions of them.
class WordEnd {
public:
    WordEnd(const std::vector<Word>& words, std::size_t word, std::size_t start)
        : word_(static_cast<std::uint32_t>(word)), start_(static_cast<std::uint32_t>(start)) {
        // Other characters are equal here, so what follows them must not count.
        constexpr char16_t kNotLatin1 = 0xFF;
        const std::u16string_view text = rest(words[word]);
        bool isExact = true;
        for (std::size_t at = 0; at < sizeof first_; ++at) {
            const char16_t unit =
                isExact && at < text.size() ? std::min(text[at], kNotLatin1) : u'\0';
            isExact = isExact && unit != kNotLatin1;
            first_ = (first_ << 8U) | unit;
        }
    }

    std::size_t word() const { return word_; }
    bool isWholeWord() const { return start_ == 0; }

    // Returns the characters up to the end of the word.
    std::u16string_view rest(const Word& word) const { return word.text().substr(start_); }

    // The order of rest(), then of the words.
    static bool isLess(const WordEnd& left, const WordEnd& right, const std::vector<Word>& words) {
        if (left.first_ != right.first_)
            return left.first_ < right.first_;
        const int order = left.rest(words[left.word_]).compare(right.rest(words[right.word_]));
        return order != 0 ? order < 0 : left.word_ < right.word_;
    }

private:
    std::uint64_t first_ = 0; // code units of rest(), which make comparisons fast
    std::uint32_t word_;
    std::uint32_t start_;
};

// Rank::match and Rank::field as a number, and the worst number.
constexpr int rankNumber(Match match, SearchField field) {
    return static_cast<int>(match) * kFieldCount + static_cast<int>(field);
}
constexpr int kNoRank = 255;

// How a text stands in a word.
struct PartOfWord {
    bool isOfLetters; // the word, and thus the text
    bool isAtStart;
    bool isAtEnd;
};

constexpr Match matchOf(const PartOfWord& part, Occurrence occurrence) {
    if (part.isAtStart && occurrence == Whole)
        return part.isAtEnd ? Match::Exact : Match::Prefix;
    if (part.isAtStart && occurrence == AtStart)
        return Match::Prefix;
    const bool isWord = part.isOfLetters ? part.isAtStart && part.isAtEnd : !part.isAtStart;
    return isWord ? Match::Word : Match::Substring;
}

// The best ranks that codes mean, by their codes.
using RanksOfCodes = std::array<int, 64>;

constexpr RanksOfCodes ranksOfCodes(const PartOfWord& part) {
    RanksOfCodes ranks{};
    for (unsigned code = 0; code < ranks.size(); ++code) {
        ranks[code] = kNoRank;
        for (const SearchField field : kFields) {
            const Occurrence occurrence = occurrenceIn(code, field);
            if (occurrence != None)
                ranks[code] = std::min(ranks[code], rankNumber(matchOf(part, occurrence), field));
        }
    }
    return ranks;
}

const RanksOfCodes& ranksOf(const PartOfWord& part) {
    static constexpr std::array kRanks{
        ranksOfCodes({false, false, false}), ranksOfCodes({false, false, true}),
        ranksOfCodes({false, true, false}),  ranksOfCodes({false, true, true}),
        ranksOfCodes({true, false, false}),  ranksOfCodes({true, false, true}),
        ranksOfCodes({true, true, false}),   ranksOfCodes({true, true, true})};
    return kRanks[(part.isOfLetters ? 4U : 0U) + (part.isAtStart ? 2U : 0U) +
                  (part.isAtEnd ? 1U : 0U)];
}

class SearchIndex {
public:
    SearchIndex(std::vector<IndexEntry> entries, const AddFile& addFile)
        : entries_(std::move(entries)), addFile_(addFile), ranks_(entries_.size(), kNoRank) {}

    void make(const FindPage& findPage) {
        addRecords(findPage);
        const std::string names = nameTable("name");
        reverseNames();
        const std::string reversedNames = nameTable("eman");
        const std::string phrases = phraseTable();
        const std::string lists = listTable();
        addBest(0, ends_.size(), 1);
        addPart(addFile_, "start",
                fmt::format(R"({{"list":{},"best":{},"phrase":{},"name":{},"eman":{},)"
                            R"("classes":[{}]}})",
                            lists, best_.finish(), phrases, names, reversedNames,
                            fmt::join(classes_, ",")));
    }

private:
    void addRecords(const FindPage& findPage) {
        Rows rows(addFile_);
        for (const IndexEntry& entry : entries_) {
            const auto record = static_cast<std::uint32_t>(numbers_.size());
            const std::uint32_t number = rows.add(rowOf(entry, findPage(entry)));
            numbers_.push_back(number);
            for (unsigned missing = static_cast<unsigned>(classes_.size());
                 missing < classOf(entry); ++missing)
                classes_.push_back(number);
            const FoldedRecord folded = foldedRecord(entry);
            for (const SearchField field : kFields)
                addWords(folded.fields[static_cast<std::size_t>(field)], record, field);
            addName(folded.fields[0], number);
        }
        rows.finish();
    }

    void addWords(std::u16string_view text, std::uint32_t record, SearchField field) {
        forEachWord(text, [&](std::size_t start, std::size_t end, bool isOfLetters) {
            const Occurrence occurrence = start > 0 ? Inside : end < text.size() ? AtStart : Whole;
            words_.at(text.substr(start, end - start), isOfLetters).add(record, field, occurrence);
            if (start == 0 || text[start - 1] == u' ' || text[start] == u' ')
                return;
            const std::u16string_view phrase = text.substr(start, text.find(u' ', start) - start);
            phrases_.at(shortened(phrase), isOfLetters).add(record, field, occurrence);
        });
    }

    // Names are sorted by their length, which the first code unit of the key tells.
    void addName(const std::u16string& name, std::uint32_t number) {
        if (!name.empty() && name.size() <= kLongestName)
            names_.emplace_back(static_cast<char16_t>(name.size()) + name, number);
    }

    std::string nameTable(const std::string& tableName) {
        std::ranges::sort(names_);
        IndexTable table(tableName, kLargestNamePart, addFile_);
        for (const auto& [key, number] : names_) {
            std::string numbers;
            appendNumber(number, numbers);
            table.add(key, numbers);
        }
        return table.finish();
    }

    void reverseNames() {
        std::u16string reversed;
        for (auto& [key, number] : names_) {
            reversed = key[0];
            for (std::size_t at = key.size(); at > 1; at = key.size() - reversed.size() + 1)
                appendCodePoint(codePointBefore(key, at), reversed);
            key = reversed;
        }
    }

    std::string phraseTable() {
        std::vector<const Word*> phrases;
        for (const Word& phrase : phrases_.all())
            phrases.push_back(&phrase);
        std::ranges::sort(phrases, {}, &Word::text);
        IndexTable table("phrase", kLargestPart, addFile_);
        for (const Word* phrase : phrases) {
            for (const std::string& piece : numbersOf(*phrase))
                table.add(phrase->text(), kWholeWord + piece);
        }
        return table.finish();
    }

    // The differences of the record numbers and the codes, in pieces that fit into a part.
    std::vector<std::string> numbersOf(const Word& word) const {
        constexpr std::size_t kLargestPiece = 4'000;
        std::vector<std::string> pieces(1);
        std::uint32_t last = 0;
        for (const auto& [record, code] : word.postings()) {
            if (pieces.back().size() > kLargestPiece) {
                pieces.emplace_back();
                last = 0;
            }
            const std::uint32_t number = numbers_[record];
            appendNumber(number - std::exchange(last, number), pieces.back());
            appendNumber(code, pieces.back());
        }
        return pieces;
    }

    std::string listTable() {
        const std::vector<Word>& words = words_.all();
        for (std::size_t word = 0; word < words.size(); ++word) {
            if (words[word].text() != u" ")
                addEnds(word);
        }
        std::ranges::sort(ends_, [&](const WordEnd& left, const WordEnd& right) {
            return WordEnd::isLess(left, right, words);
        });
        std::vector<std::vector<std::string>> numbers;
        for (const Word& word : words)
            numbers.push_back(numbersOf(word));
        IndexTable table("list", kLargestPart, addFile_);
        for (std::size_t end = 0; end < ends_.size(); ++end) {
            for (const std::string& piece : numbers[ends_[end].word()]) {
                const std::size_t part =
                    table.add(keyOf(ends_[end]),
                              (ends_[end].isWholeWord() ? kWholeWord : kPartOfWord) + piece);
                partStarts_.resize(part + 1, end);
            }
        }
        return table.finish();
    }

    void addEnds(std::size_t word) {
        const std::u16string_view text = words_.all()[word].text();
        for (std::size_t start = 0; start < text.size();) {
            ends_.emplace_back(words_.all(), word, start);
            codePointAt(text, start); // moves to the next character
        }
    }

    const Word& wordOf(const WordEnd& end) const { return words_.all()[end.word()]; }

    std::u16string_view keyOf(const WordEnd& end) const { return shortened(end.rest(wordOf(end))); }

    // Adds the best records for each text that the word ends of too many parts begin with. The
    // given word ends have the same code units before the last one of `size`.
    void addBest(std::size_t begin, std::size_t end, std::size_t size) {
        while (begin != end && keyOf(ends_[begin]).size() < size)
            ++begin;
        while (begin != end) {
            const std::u16string_view text = keyOf(ends_[begin]).substr(0, size);
            const auto groupEnd =
                std::partition_point(position(begin), position(end), [&](const WordEnd& wordEnd) {
                    return keyOf(wordEnd).substr(0, size) <= text;
                });
            const auto next = static_cast<std::size_t>(groupEnd - ends_.begin());
            if (countPartStarts(begin, next) >= kFewParts) {
                if (!isHighSurrogate(text.back()))
                    best_.add(text, bestRecords(begin, next, text));
                addBest(begin, next, size + 1);
            }
            begin = next;
        }
    }

    std::vector<WordEnd>::const_iterator position(std::size_t end) const {
        return ends_.begin() + static_cast<std::ptrdiff_t>(end);
    }

    std::ptrdiff_t countPartStarts(std::size_t begin, std::size_t end) const {
        return std::ranges::lower_bound(partStarts_, end) -
               std::ranges::lower_bound(partStarts_, begin);
    }

    // Returns the numbers of the best records for a text, which word ends begin with.
    std::string bestRecords(std::size_t begin, std::size_t end, std::u16string_view text) {
        std::vector<std::uint64_t> best;
        for (const std::uint32_t record : rankRecords(begin, end, text)) {
            const int rank = std::exchange(ranks_[record], kNoRank);
            const auto match = static_cast<std::uint64_t>(rank / kFieldCount);
            const auto field = static_cast<std::uint64_t>(rank % kFieldCount);
            best.push_back((match << 40U) | (std::uint64_t{classOf(entries_[record])} << 36U) |
                           (field << 32U) | record);
        }
        const std::size_t count = std::min(kBestCount, best.size());
        const auto last = best.begin() + static_cast<std::ptrdiff_t>(count);
        std::partial_sort(best.begin(), last, best.end());
        std::string numbers;
        std::for_each(best.begin(), last, [&](std::uint64_t number) {
            appendNumber(numbers_[static_cast<std::uint32_t>(number)], numbers);
        });
        return numbers;
    }

    // Sets the ranks of the records for a text, which word ends begin with. Returns the records.
    std::vector<std::uint32_t> rankRecords(std::size_t begin, std::size_t end,
                                           std::u16string_view text) {
        std::vector<std::uint32_t> found;
        const bool isOfLetters = wordOf(ends_[begin]).isOfLetters();
        for (std::size_t at = begin; at < end; ++at) {
            const Word& word = wordOf(ends_[at]);
            const PartOfWord part{isOfLetters, ends_[at].isWholeWord(),
                                  ends_[at].rest(word).size() == text.size()};
            // Whether a letter follows is not known here.
            const bool isUncertain = !isOfLetters && !part.isAtStart && part.isAtEnd;
            const RanksOfCodes& ranks = ranksOf(part);
            for (const auto& [record, code] : word.postings()) {
                if (ranks_[record] == kNoRank)
                    found.push_back(record);
                ranks_[record] =
                    std::min(ranks_[record], isUncertain ? rankOfText(text, record) : ranks[code]);
            }
        }
        return found;
    }

    int rankOfText(std::u16string_view text, std::uint32_t record) const {
        const std::optional<Rank> rank =
            rankOf({std::u16string(text)}, foldedRecord(entries_[record]).searched());
        return rank ? rankNumber(rank->match, rank->field) : kNoRank;
    }

    std::vector<IndexEntry> entries_;
    const AddFile& addFile_;
    std::vector<std::uint32_t> numbers_; // of the records
    std::vector<std::uint32_t> classes_; // the first numbers of classes 1, 2 and 3
    std::vector<std::pair<std::u16string, std::uint32_t>> names_;
    Words words_;
    Words phrases_; // from the start of a word up to a space, if there is no space before it
    std::vector<WordEnd> ends_;
    std::vector<std::size_t>
        partStarts_; // for each part of "list", the word end that it begins with
    IndexTable best_{"best", kLargestPart, addFile_};
    std::vector<int> ranks_; // of the records for one text
};

} // namespace

void makeSearchIndex(const LookupIndex& index, const FindPage& findPage, const AddFile& addFile) {
    SearchIndex(sortedEntries(index), addFile).make(findPage);
}

} // namespace refdoc::site
