#pragma once

#include <filesystem>

namespace refdoc::check {

/// A reference root with a single file in it, so that the library reads the file as it would among
/// others. The root is a new folder in the system's folder for temporary files and goes with the
/// object; the file in it is a link to the one that is meant, or a copy where there are no links.
class FileRoot {
public:
    enum class Folder { Resources, Lookup };

    /// \param file  absolute
    /// \throws std::filesystem::filesystem_error  the root could not be made
    FileRoot(const std::filesystem::path& file, Folder folder);
    ~FileRoot();
    FileRoot(const FileRoot&) = delete;
    FileRoot& operator=(const FileRoot&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }

    /// The folder below the root that the file lies in.
    const std::filesystem::path& folder() const noexcept { return folder_; }

private:
    std::filesystem::path path_;
    std::filesystem::path folder_;
};

} // namespace refdoc::check
