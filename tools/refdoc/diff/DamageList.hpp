#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace refdoc::diff {

/// A file that a tree could not use.
struct Damage {
    std::string relativePath{}; ///< from the reference root, with the entry
    std::string shownPath{};
    std::string error{};
};

/// Collects the damaged files of both trees. A file that both trees have, with the same error, is
/// listed once.
class DamageList {
public:
    /// \param side  not Both; the files of the new tree name those that both have
    void add(Side side, const std::vector<Damage>& damages);

    /// Returns the files, sorted by their paths from the reference root.
    std::vector<DamagedFile> files() const;

private:
    std::map<std::pair<std::string, std::string>, DamagedFile> files_; // by path and error
};

} // namespace refdoc::diff
