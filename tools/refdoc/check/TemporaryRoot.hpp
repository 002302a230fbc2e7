#pragma once

#include "platform/system/TemporaryFolder.hpp"

#include <filesystem>

namespace refdoc::check {

/// A temporary reference root with at most one file, so that the library reads the file as it would
/// among others. The root is a new folder for temporary files, which the destructor removes. The
/// file in it is a symbolic link to the original, or a copy if links are not supported.
class TemporaryRoot {
public:
    enum class Folder { Resources, Lookup };

    /// \param file  absolute; empty: the root has no file
    /// \param name  the name of the file in the root
    /// \throws std::filesystem::filesystem_error  the root could not be created
    TemporaryRoot(const std::filesystem::path& file, Folder folder,
                  const std::filesystem::path& name);

    /// The file keeps its name.
    TemporaryRoot(const std::filesystem::path& file, Folder folder)
        : TemporaryRoot(file, folder, file.filename()) {}

    const std::filesystem::path& path() const noexcept { return root_.path(); }

    /// The folder of the file, below the root.
    const std::filesystem::path& folder() const noexcept { return folder_; }

private:
    platform::TemporaryFolder root_;
    std::filesystem::path folder_;
};

} // namespace refdoc::check
