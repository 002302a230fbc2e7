#pragma once

#include "tools/refdoc/check/findings/Finding.hpp"

#include <filesystem>
#include <string>
#include <unordered_map>

namespace refdoc::check {

/// How paths are written in findings: relative to a folder when they lie below it, with '/'. One
/// thread at a time.
class PathNames {
public:
    /// \param base  the folder, absolute; usually the current one
    explicit PathNames(std::filesystem::path base) : base_(std::move(base)) {}

    /// What lies below `from` is written as if it lay below `to`.
    void rename(std::filesystem::path from, std::filesystem::path to);

    /// The path of the file or package, in UTF-8.
    const std::string& pathOf(const SourceFile& file) const;

    /// "file", or "package!entry".
    std::string nameOf(const SourceFile& file) const;

    const std::filesystem::path& base() const noexcept { return base_; }

private:
    std::string makePath(const std::u16string& file) const;

    std::filesystem::path base_;
    std::filesystem::path from_;
    std::filesystem::path to_;
    mutable std::unordered_map<std::u16string, std::string> known_; // many findings name few files
};

} // namespace refdoc::check
