#include "tools/refdoc/diff/DamageList.hpp"

namespace refdoc::diff {

void DamageList::add(Side side, const std::vector<Damage>& damages) {
    for (const Damage& damage : damages) {
        const auto [known, isNew] = files_.try_emplace(
            {damage.relativePath, damage.error},
            DamagedFile{.side = side, .path = damage.shownPath, .error = damage.error});
        if (isNew || known->second.side == side)
            continue;
        known->second.side = Side::Both;
        if (side == Side::New)
            known->second.path = damage.shownPath;
    }
}

std::vector<DamagedFile> DamageList::files() const {
    std::vector<DamagedFile> files;
    files.reserve(files_.size());
    for (const auto& [key, file] : files_)
        files.push_back(file);
    return files;
}

} // namespace refdoc::diff
