#pragma once

#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/diff/TreeComparison.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <memory>
#include <optional>
#include <string>

namespace refdoc::diff {

/// What a comparison is run with.
struct DiffSettings {
    std::unique_ptr<DiffOutput> output{};
    std::optional<ChangeClass> only{};  ///< prints only the changes of this class
    bool isNegativeIfDifferent = false; ///< the status tells whether changes were printed
    bool isWhole = true;                ///< prints everything at once, for a pager
    std::string heading{};              ///< before the output, unless nothing differs
};

/// Reads the output format, `--only` and `--exit-code`.
DiffSettings readSettings(const Options& options, const PageSetup& setup);

/// Compares two trees. The answer has complaints about damaged files at its end.
Answer runComparison(std::unique_ptr<Tree> oldTree, std::unique_ptr<Tree> newTree,
                     DiffSettings settings);

} // namespace refdoc::diff
