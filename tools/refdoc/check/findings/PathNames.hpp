#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"

#include <filesystem>
#include <map>
#include <string>
#include <unordered_map>

namespace refdoc::check {

/// How paths are written in findings: with '/', and relative to a folder if they are below it.
class PathNames {
public:
    /// \param base  the folder, absolute
    explicit PathNames(std::filesystem::path base) : base_(std::move(base)) {}

    /// Writes the paths of files in the folder `from` as if they were in `to`.
    void rename(std::filesystem::path from, std::filesystem::path to);

    /// Returns the file that is meant: another one if its folder has been renamed.
    SourceFile originalOf(const SourceFile& file) const;

    /// Returns the path of the file or package, in UTF-8.
    const std::string& pathOf(const SourceFile& file) const;

    /// Returns "file" or "package!entry".
    std::string nameOf(const SourceFile& file) const;

    const std::filesystem::path& base() const noexcept { return base_; }

private:
    std::string makePath(const SourceFile& file) const;

    std::filesystem::path base_;
    std::map<std::filesystem::path, std::filesystem::path> renamed_;
    mutable std::unordered_map<std::u16string, std::string> known_; // few files have many findings
};

} // namespace refdoc::check
