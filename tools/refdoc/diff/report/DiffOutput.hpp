#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <memory>
#include <string>

namespace refdoc::diff {

/// Prints differences in one format, product by product. The whole output is the head, the products
/// with separators between them, and the tail. Objects have no state that changes.
class DiffOutput {
public:
    virtual ~DiffOutput() = default;

    virtual std::string head() const { return {}; }

    /// Returns the output of one product. Is called for several products at a time, on several
    /// threads.
    virtual std::string product(const ProductChanges& product) const = 0;

    /// Stands between the output of two products.
    virtual std::string separator() const { return {}; }

    /// \param summary  of all products
    virtual std::string tail(const Summary& summary) const = 0;
};

/// For people, grouped by product and section. The tail is a line with the counts.
std::unique_ptr<DiffOutput> textOutput(const PageSetup& setup);

/// One JSON document.
std::unique_ptr<DiffOutput> jsonOutput();

/// One change per line, as JSON.
std::unique_ptr<DiffOutput> jsonLinesOutput();

/// Release notes in Markdown, grouped by product.
std::unique_ptr<DiffOutput> markdownOutput();

} // namespace refdoc::diff
