#include "tools/refdoc/diff/compare/Moves.hpp"

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

using Words = std::vector<std::size_t>; // hashes, sorted

// For more pairs with the same names than this, comparing each with each takes too long.
constexpr std::size_t kMostPairs = 256;

// The links differ, the names are the same, and words of the format say little.
constexpr std::array<std::string_view, 4> kMembersWithoutText{"href", "refEntities",
                                                              "deprecationStatus", "syntaxType"};

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80;
}

// Returns the end of the first word or space. Scripts other than Latin often have no spaces, so
// that each character beyond ASCII is a word.
std::size_t wordEnd(std::string_view text) {
    std::size_t end = 1;
    if (text.front() == ' ')
        return end;
    if (isAscii(text.front())) {
        while (end < text.size() && text[end] != ' ' && isAscii(text[end]))
            ++end;
    } else {
        while (end < text.size() && isContinuation(text[end]))
            ++end;
    }
    return end;
}

void addWords(std::string_view text, std::size_t seed, Words& words) {
    while (!text.empty()) {
        const std::size_t end = wordEnd(text);
        if (text.front() != ' ')
            words.push_back(seed * 31 + std::hash<std::string_view>()(text.substr(0, end)));
        text.remove_prefix(end);
    }
}

// The same word in another field is another word.
void collectWords(const json::value& value, std::string_view field, Words& words) {
    if (const json::string* text = value.if_string()) {
        addWords(*text, std::hash<std::string_view>()(field), words);
    } else if (const json::array* elements = value.if_array()) {
        for (const json::value& element : *elements)
            collectWords(element, field, words);
    } else if (const json::object* members = value.if_object()) {
        for (const json::key_value_pair& member : *members) {
            if (std::ranges::find(kMembersWithoutText, std::string_view(member.key())) ==
                kMembersWithoutText.end())
                collectWords(member.value(), member.key(), words);
        }
    }
}

void findWords(MoveCandidate& candidate) {
    collectWords(candidate.record, {}, candidate.words);
    std::ranges::sort(candidate.words);
}

int certaintyOf(const Words& one, const Words& other) {
    if (one.empty() && other.empty())
        return 100;
    Words common;
    std::ranges::set_intersection(one, other, std::back_inserter(common));
    return static_cast<int>(200 * common.size() / (one.size() + other.size()));
}

// The positions of removed and added items with the same names.
struct Namesakes {
    std::vector<std::size_t> removed{};
    std::vector<std::size_t> added{};
};

// A pair of positions within Namesakes.
struct Pair {
    std::size_t removed;
    std::size_t added;
    int certainty;
};

class MoveSearch {
public:
    MoveSearch(std::vector<MoveCandidate>& removed, std::vector<MoveCandidate>& added)
        : removed_(removed), added_(added) {}

    void choose(const Namesakes& namesakes, std::vector<Move>& moves) {
        for (const std::size_t index : namesakes.removed)
            findWords(removed_[index]);
        for (const std::size_t index : namesakes.added)
            findWords(added_[index]);
        std::vector<bool> isRemovedTaken(namesakes.removed.size());
        std::vector<bool> isAddedTaken(namesakes.added.size());
        for (const Pair& pair : similarPairs(namesakes)) {
            if (isRemovedTaken[pair.removed] || isAddedTaken[pair.added])
                continue;
            isRemovedTaken[pair.removed] = true;
            isAddedTaken[pair.added] = true;
            moves.push_back(
                {namesakes.removed[pair.removed], namesakes.added[pair.added], pair.certainty});
        }
    }

private:
    // Pairs that are equally similar and share an item have different sums of positions, which
    // makes the order independent of the direction of the comparison.
    std::vector<Pair> similarPairs(const Namesakes& namesakes) const {
        std::vector<Pair> pairs;
        const bool isFew = namesakes.removed.size() * namesakes.added.size() <= kMostPairs;
        for (std::size_t removed = 0; removed < namesakes.removed.size(); ++removed) {
            for (std::size_t added = 0; added < namesakes.added.size() && isFew; ++added)
                addIfSimilar(namesakes, removed, added, pairs);
            if (!isFew && removed < namesakes.added.size())
                addIfSimilar(namesakes, removed, removed, pairs);
        }
        std::ranges::stable_sort(pairs, {}, [](const Pair& pair) {
            return std::pair(-pair.certainty, pair.removed + pair.added);
        });
        return pairs;
    }

    void addIfSimilar(const Namesakes& namesakes, std::size_t removed, std::size_t added,
                      std::vector<Pair>& pairs) const {
        const int certainty = certaintyOf(removed_[namesakes.removed[removed]].words,
                                          added_[namesakes.added[added]].words);
        if (certainty >= kLeastCertainty)
            pairs.push_back({removed, added, certainty});
    }

    std::vector<MoveCandidate>& removed_;
    std::vector<MoveCandidate>& added_;
};

} // namespace

std::vector<Move> findMoves(std::vector<MoveCandidate>& removed,
                            std::vector<MoveCandidate>& added) {
    std::unordered_map<std::string_view, Namesakes> byNames;
    for (std::size_t index = 0; index < removed.size(); ++index)
        byNames[removed[index].names].removed.push_back(index);
    for (std::size_t index = 0; index < added.size(); ++index)
        byNames[added[index].names].added.push_back(index);
    std::vector<Move> moves;
    MoveSearch search(removed, added);
    for (const auto& [names, namesakes] : byNames) {
        if (!names.empty() && !namesakes.removed.empty() && !namesakes.added.empty())
            search.choose(namesakes, moves);
    }
    return moves;
}

} // namespace refdoc::diff
