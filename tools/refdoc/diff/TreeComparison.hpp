#pragma once

#include "tools/refdoc/diff/DamageList.hpp"
#include "tools/refdoc/diff/Tree.hpp"
#include "tools/refdoc/diff/changes/Change.hpp"
#include "tools/refdoc/diff/report/DiffOutput.hpp"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::diff {

/// Compares two trees, a few products at a time, and prints the changes.
///
/// The products are read and compared on all processors, but their output is in the order of their
/// names. Only the lookup indexes and the full records of a few products are in memory.
class TreeComparison {
public:
    /// \param only  prints and counts only the changes of this class
    TreeComparison(const Tree& oldTree, const Tree& newTree, const DiffOutput& output,
                   std::optional<ChangeClass> only);

    std::size_t productCount() const noexcept { return products_.size(); }
    bool isDone() const noexcept { return done_ == products_.size(); }

    /// Compares the next products. The first call returns the head of the output, too.
    /// \param step  called once for each product
    std::string next(const std::function<void()>& step);

    /// Returns the end of the output and completes the summary. To be called after the last
    /// product.
    std::string finish();

    /// Returns the summary of the products so far; after finish(), with the damaged files.
    const Summary& summary() const noexcept { return summary_; }

private:
    struct Batch;

    void read(const Tree& tree, std::vector<ReadProduct> Batch::*side, Batch& batch) const;
    void compare(Batch& batch) const;
    std::string take(const Batch& batch, const std::function<void()>& step);

    const Tree& old_;
    const Tree& new_;
    const DiffOutput& output_;
    std::vector<std::u16string> products_;
    std::size_t done_ = 0;
    bool isEmpty_ = true; // no product has changes so far
    Summary summary_;
    DamageList damages_;
};

/// Returns the class of this name, as toWord() spells it; absent if there is none.
std::optional<ChangeClass> classFrom(std::string_view word);

} // namespace refdoc::diff
