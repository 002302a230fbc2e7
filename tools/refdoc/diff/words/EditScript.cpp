#include "tools/refdoc/diff/words/EditScript.hpp"

#include <algorithm>
#include <cstdlib>

namespace refdoc::diff {

namespace {

using Number = std::ptrdiff_t;
using Elements = std::span<const std::size_t>;

// Where the row of a number of edits begins. The row has an element for each diagonal that can be
// reached with these edits: the furthest old element that is reached on it. Diagonal `index` of the
// row for n edits is where 2 * index - n more old than new elements are passed.
Number rowBegin(Number edits) {
    return edits * (edits + 1) / 2;
}

Number diagonal(Number index, Number edits) {
    return 2 * index - edits;
}

// Whether the best way to a diagonal ends with the removal of an element. Otherwise one is added.
bool endsWithRemoval(const Number* previousRow, Number index, Number edits) {
    return index == edits || (index > 0 && previousRow[index - 1] + 1 > previousRow[index]);
}

// The old element after the last edit on the best way to a diagonal.
Number afterEdit(const Number* previousRow, Number index, Number edits) {
    if (edits == 0)
        return 0;
    return endsWithRemoval(previousRow, index, edits) ? previousRow[index - 1] + 1
                                                      : previousRow[index];
}

// Follows equal elements from an old element on a diagonal. Returns the old element after them.
Number follow(Elements oldElements, Elements newElements, Number at, Number onDiagonal) {
    const Number oldSize = std::ssize(oldElements);
    const Number newSize = std::ssize(newElements);
    while (at < oldSize && at - onDiagonal < newSize &&
           oldElements[static_cast<std::size_t>(at)] ==
               newElements[static_cast<std::size_t>(at - onDiagonal)])
        ++at;
    return at;
}

// Appends the matches on the way that ends on a diagonal, the last one first.
void appendBackwards(const Number* rows, Number index, Number edits, std::vector<Match>& matches) {
    for (;; --edits) {
        const Number end = rows[rowBegin(edits) + index];
        const Number* previousRow = edits > 0 ? rows + rowBegin(edits - 1) : nullptr;
        const Number begin = afterEdit(previousRow, index, edits);
        if (begin < end)
            matches.push_back({static_cast<std::size_t>(begin),
                               static_cast<std::size_t>(begin - diagonal(index, edits)),
                               static_cast<std::size_t>(end - begin)});
        if (edits == 0)
            return;
        if (endsWithRemoval(previousRow, index, edits))
            --index;
    }
}

} // namespace

void EditScript::findMatches(Elements oldElements, Elements newElements,
                             std::vector<Match>& matches) {
    const Number oldSize = std::ssize(oldElements);
    const Number newSize = std::ssize(newElements);
    const Number most = std::min(static_cast<Number>(mostEdits_), oldSize + newSize);
    rows_.clear();
    if (std::abs(oldSize - newSize) > most)
        return;
    for (Number edits = 0; edits <= most; ++edits) {
        rows_.resize(static_cast<std::size_t>(rowBegin(edits + 1)));
        const Number* previousRow = edits > 0 ? rows_.data() + rowBegin(edits - 1) : nullptr;
        for (Number index = 0; index <= edits; ++index) {
            const Number onDiagonal = diagonal(index, edits);
            const Number start = afterEdit(previousRow, index, edits);
            const Number end = follow(oldElements, newElements, start, onDiagonal);
            rows_[static_cast<std::size_t>(rowBegin(edits) + index)] = end;
            if (end >= oldSize && end - onDiagonal >= newSize) {
                const std::size_t first = matches.size();
                appendBackwards(rows_.data(), index, edits, matches);
                std::reverse(matches.begin() + static_cast<Number>(first), matches.end());
                return;
            }
        }
    }
}

} // namespace refdoc::diff
