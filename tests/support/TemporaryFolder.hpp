#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace docparser_tests {

/// Creates an empty folder in the system's folder for temporary files. The destructor removes it
/// with its content.
///
/// The folder belongs to this object alone, so tests may run in parallel.
class TemporaryFolder {
public:
    /// \throws std::filesystem::filesystem_error  the folder cannot be created
    TemporaryFolder() : path_(makeUnique()) {}
    ~TemporaryFolder() {
        std::error_code left;
        std::filesystem::remove_all(path_, left);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The absolute path of the folder, without a separator at the end.
    const std::filesystem::path& path() const noexcept { return path_; }

    /// The path in UTF-16.
    std::u16string u16() const { return path_.u16string(); }

    /// Writes or replaces a file and creates its parent folders.
    /// \param relative  path below this folder; a std::u16string for names beyond ASCII
    /// \returns         the absolute path of the file
    /// \throws std::runtime_error  the file cannot be written
    std::filesystem::path write(const std::filesystem::path& relative,
                                std::string_view bytes) const {
        const std::filesystem::path file = path_ / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream)
            throw std::runtime_error("could not write " + file.string());
        return file;
    }

private:
    static std::filesystem::path makeUnique() {
        static std::atomic<unsigned> counter{0};
        const std::filesystem::path parent =
            std::filesystem::canonical(std::filesystem::temp_directory_path());
        for (;;) {
            const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
            const std::string name =
                "docparser-test-" + std::to_string(now) + '-' + std::to_string(counter++);
            // Fails if another process has used the name; then the next one is tried.
            if (std::filesystem::create_directory(parent / name))
                return parent / name;
        }
    }

    std::filesystem::path path_;
};

} // namespace docparser_tests
