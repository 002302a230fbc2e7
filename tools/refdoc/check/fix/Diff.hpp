#pragma once

#include <string>
#include <string_view>

namespace refdoc::check {

/// How a diff is printed.
struct DiffStyle {
    bool color = false;
    bool isForTerminal = false; ///< control characters become visible; such a diff can't be applied
};

/// The two sides of a diff: names with '/', and contents with the same number of lines.
struct DiffSides {
    std::string_view oldName;
    std::string_view newName;
    std::string_view before;
    std::string_view after;
};

/// Returns a unified diff in the form of `git diff`, which `git apply` and `patch -p1` accept. It
/// has three lines of context, and names a renamed file under "rename from" and "rename to".
///
/// Cost: linear in the contents.
std::string unifiedDiff(const DiffSides& sides, DiffStyle style);

} // namespace refdoc::check
