#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace refdoc::diff {

/// A run of elements that two sequences have in common.
struct Match {
    std::size_t oldBegin;
    std::size_t newBegin;
    std::size_t size;

    std::size_t oldEnd() const { return oldBegin + size; }
    std::size_t newEnd() const { return newBegin + size; }
    bool operator==(const Match&) const = default;
};

/// Finds the shortest edit script between sequences, with Myers' algorithm. An object keeps its
/// memory for further calls.
class EditScript {
public:
    /// \param mostEdits  the most removed and added elements that a script may have
    explicit EditScript(std::size_t mostEdits) : mostEdits_(mostEdits) {}

    /// Appends what the sequences have in common, in their order. Appends nothing if they differ in
    /// more than the allowed number of elements.
    ///
    /// Cost: at most the length of a sequence times the allowed number of edits, little if the
    /// sequences are nearly equal.
    void findMatches(std::span<const std::size_t> oldElements,
                     std::span<const std::size_t> newElements, std::vector<Match>& matches);

private:
    std::size_t mostEdits_;
    std::vector<std::ptrdiff_t> rows_; // one after the other
};

} // namespace refdoc::diff
