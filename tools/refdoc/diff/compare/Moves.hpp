#pragma once

#include <boost/json/value.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace refdoc::diff {

/// An item that only one side has, as a candidate for a move.
struct MoveCandidate {
    std::string href{};
    std::string names{};              ///< the names of its entities; empty: it cannot have moved
    boost::json::value record{};      ///< as JSON
    std::vector<std::size_t> words{}; ///< set by findMoves()
};

/// An item that moved to another link.
struct Move {
    std::size_t removed;
    std::size_t added;
    int certainty; ///< in percent, at least kLeastCertainty
};

/// Items that share less than this percentage of their words are different items.
inline constexpr int kLeastCertainty = 50;

/// Finds pairs of a removed and an added item that have the same names and similar texts. The most
/// similar pairs come first, and each item has at most one. The same pairs, swapped, result from
/// swapped arguments.
///
/// The certainty is the percentage of words that both have, twice their number divided by that of
/// all words; links, names of entities and words of the format do not count.
/// Cost: linear in the size of the records; of many items with the same names, those at the same
/// position are compared.
std::vector<Move> findMoves(std::vector<MoveCandidate>& removed, std::vector<MoveCandidate>& added);

} // namespace refdoc::diff
