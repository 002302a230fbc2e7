#include "tools/refdoc/check/findings/PathNames.hpp"

#include "platform/i18n/Converter.hpp"

#include <utility>

namespace refdoc::check {

namespace fs = std::filesystem;

namespace {

// Returns the path from `folder` to `path`; empty if it is not below the folder.
fs::path below(const fs::path& path, const fs::path& folder) {
    fs::path relative = path.lexically_relative(folder);
    return relative.empty() || *relative.begin() == ".." ? fs::path() : relative;
}

} // namespace

void PathNames::rename(fs::path from, fs::path to) {
    renamed_.insert_or_assign(std::move(from), std::move(to));
}

const std::string& PathNames::pathOf(const SourceFile& file) const {
    const auto known = known_.find(file.path);
    return known != known_.end() ? known->second
                                 : known_.emplace(file.path, makePath(file)).first->second;
}

SourceFile PathNames::originalOf(const SourceFile& file) const {
    SourceFile original = file;
    const fs::path path = fs::path(file.path).lexically_normal();
    if (const auto renamed = renamed_.find(path.parent_path()); renamed != renamed_.end())
        original.path = (renamed->second / path.filename()).u16string();
    return original;
}

std::string PathNames::makePath(const SourceFile& file) const {
    fs::path path = fs::path(originalOf(file).path).lexically_normal();
    if (path.is_absolute()) {
        if (fs::path relative = below(path, base_); !relative.empty())
            path = std::move(relative);
    }
    return fl::i18n::to_string(path.generic_u16string());
}

std::string PathNames::nameOf(const SourceFile& file) const {
    std::string name = pathOf(file);
    if (!file.entry.empty())
        name += '!' + fl::i18n::to_string(file.entry);
    return name;
}

} // namespace refdoc::check
