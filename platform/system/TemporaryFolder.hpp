#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace platform {

/// A new, empty folder among the system's temporary files, which no other object or process has.
/// The destructor removes it with all its content.
class TemporaryFolder {
public:
    /// \param prefix  the start of the folder's name
    /// \throws std::filesystem::filesystem_error  the folder could not be created
    explicit TemporaryFolder(const std::string& prefix) : path_(makeUnique(prefix)) {}
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// Returns the folder: absolute, without links, and without a separator at its end.
    const std::filesystem::path& path() const noexcept { return path_; }

private:
    static std::filesystem::path makeUnique(const std::string& prefix) {
        const std::filesystem::path parent =
            std::filesystem::canonical(std::filesystem::temp_directory_path());
        std::random_device random;
        for (;;) {
            std::filesystem::path folder = parent / (prefix + std::to_string(random()));
            // If another process has taken the name, try the next one.
            if (std::filesystem::create_directory(folder))
                return folder;
        }
    }

    std::filesystem::path path_;
};

} // namespace platform
