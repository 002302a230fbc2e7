#include "tools/refdoc/diff/TreeComparison.hpp"

#include "docparser/Queries.hpp"
#include "tools/refdoc/session/Parallel.hpp"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>
#include <utility>

namespace refdoc::diff {

namespace {

// Enough for all processors of an ordinary computer, few enough for its memory.
constexpr std::size_t kBatchSize = 64;

} // namespace

// Some products on their way to the output.
struct TreeComparison::Batch {
    explicit Batch(std::span<const std::u16string> all)
        : products(all),
          olds(all.size()),
          news(all.size()),
          changes(all.size()),
          outputs(all.size()) {}

    std::span<const std::u16string> products;
    std::vector<ReadProduct> olds;
    std::vector<ReadProduct> news;
    std::vector<Summary> changes; // only the counts
    std::vector<std::string> outputs;
};

TreeComparison::TreeComparison(const Tree& oldTree, const Tree& newTree, const DiffOutput& output,
                               std::optional<ChangeClass> only)
    : old_(oldTree), new_(newTree), output_(output) {
    summary_.only = only;
    std::ranges::set_union(oldTree.products(), newTree.products(), std::back_inserter(products_));
    damages_.add(Side::Old, oldTree.lookupDamages());
    damages_.add(Side::New, newTree.lookupDamages());
}

std::string TreeComparison::next(const std::function<void()>& step) {
    std::string text = done_ == 0 ? output_.head() : "";
    Batch batch(std::span<const std::u16string>(products_).subspan(
        done_, std::min(kBatchSize, products_.size() - done_)));
    read(old_, &Batch::olds, batch);
    read(new_, &Batch::news, batch);
    compare(batch);
    text += take(batch, step);
    done_ += batch.products.size();
    return text;
}

std::string TreeComparison::finish() {
    std::string text;
    if (products_.empty())
        text = output_.head();
    summary_.damagedFiles = damages_.files();
    return text + output_.tail(summary_);
}

void TreeComparison::read(const Tree& tree, std::vector<ReadProduct> Batch::*side,
                          Batch& batch) const {
    tree.select();
    forEachInParallel(batch.products.size(), [&](std::size_t index) {
        (batch.*side)[index] = tree.read(batch.products[index]);
    });
}

void TreeComparison::compare(Batch& batch) const {
    forEachInParallel(batch.products.size(), [&](std::size_t index) {
        ProductChanges product = compareProducts(batch.products[index], batch.olds[index].records,
                                                 batch.news[index].records);
        // Frees the memory on the thread that used it.
        batch.olds[index].records = {};
        batch.news[index].records = {};
        if (summary_.only)
            std::erase_if(product.changes, [&](const Change& change) {
                return change.changeClass != *summary_.only;
            });
        for (const Change& change : product.changes)
            ++batch.changes[index].counts.at(static_cast<std::size_t>(change.changeClass));
        if (!product.changes.empty())
            batch.outputs[index] = output_.product(product);
    });
}

std::string TreeComparison::take(const Batch& batch, const std::function<void()>& step) {
    std::string text;
    for (std::size_t index = 0; index < batch.products.size(); ++index) {
        step();
        damages_.add(Side::Old, batch.olds[index].damages);
        damages_.add(Side::New, batch.news[index].damages);
        if (batch.changes[index].total() == 0)
            continue;
        for (std::size_t each = 0; each < summary_.counts.size(); ++each)
            summary_.counts.at(each) += batch.changes[index].counts.at(each);
        text.append(isEmpty_ ? "" : output_.separator()).append(batch.outputs[index]);
        isEmpty_ = false;
    }
    return text;
}

std::optional<ChangeClass> classFrom(std::string_view word) {
    for (const ChangeClass each :
         {ChangeClass::Breaking, ChangeClass::Notable, ChangeClass::Textual}) {
        if (toWord(each) == word)
            return each;
    }
    return std::nullopt;
}

} // namespace refdoc::diff
