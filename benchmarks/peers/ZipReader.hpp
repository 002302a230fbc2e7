#pragma once

#include <zip.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// Reads the files of a zip package by libzip.
class ZipReader {
public:
    struct Entry {
        std::string name;
        zip_uint64_t index;
        std::size_t size; ///< in bytes, as the directory tells it
    };

    /// \throws std::runtime_error  the file is no zip
    explicit ZipReader(const std::filesystem::path& path);

    /// Every file in the zip's order; packaging metadata is none.
    std::vector<Entry> entries() const;

    /// The bytes of an entry, with so many bytes of room behind them.
    /// \throws std::runtime_error  it cannot be read
    std::string read(const Entry& entry, std::size_t spareBytes) const;

private:
    struct Discard {
        void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
    };
    std::unique_ptr<zip_t, Discard> archive_;
};

} // namespace reference::docparser::benchmarks
