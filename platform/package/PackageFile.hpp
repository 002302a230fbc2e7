#pragma once

#include "platform/system/RegularFile.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace opc::detail {

/// The bytes of a package's file, read through one block of memory: a directory is read in steps of
/// a few bytes. One thread at a time.
class PackageFile {
public:
    /// \throws std::system_error  the system does not tell the file's size
    explicit PackageFile(platform::RegularFile file);

    /// The size that the file had when it was opened, in bytes.
    std::uint64_t size() const noexcept { return size_; }

    /// Reads `length` bytes from a place of the file, fewer when it ends before.
    /// \throws std::system_error  the system could not read
    /// \throws std::length_error  more than allowReading() granted
    std::size_t read(std::uint64_t offset, char* buffer, std::size_t length);

    /// Grants so many bytes to the reads from now on, all together.
    void allowReading(std::uint64_t bytes) noexcept { allowed_ = bytes; }

    static constexpr std::uint64_t kUnlimited = std::numeric_limits<std::uint64_t>::max();

private:
    void takeFromAllowance(std::size_t length);
    std::size_t readOnce(std::uint64_t offset, char* buffer, std::size_t length);

    platform::RegularFile file_;
    std::uint64_t size_;
    std::uint64_t allowed_ = kUnlimited;
    std::unique_ptr<char[]> block_;
    std::uint64_t blockOffset_ = 0;
    std::size_t blockLength_ = 0;
};

} // namespace opc::detail
