#pragma once

#include "platform/system/RegularFile.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>

namespace platform::zip {

/// Reads a package's file through a buffer of one block, because a directory is read a few bytes at
/// a time. One thread at a time.
class PackageFile {
public:
    /// \throws std::system_error  the system does not report the file's size
    explicit PackageFile(RegularFile file);

    /// Returns the size of the file when it was opened, in bytes.
    std::uint64_t size() const noexcept { return size_; }

    /// Reads `length` bytes at `offset`, fewer if the file ends before.
    /// \returns  the number of bytes read
    /// \throws std::system_error     the read failed
    /// \throws platform::LimitError  the allowance is used up
    std::size_t read(std::uint64_t offset, char* buffer, std::size_t length);

    /// Limits how many bytes all further reads together may request. Unlimited at first.
    void setAllowance(std::uint64_t bytes) noexcept { allowance_ = bytes; }

    static constexpr std::uint64_t kUnlimited = std::numeric_limits<std::uint64_t>::max();

private:
    void takeFromAllowance(std::size_t length);
    std::size_t readOnce(std::uint64_t offset, char* buffer, std::size_t length);

    RegularFile file_;
    std::uint64_t size_;
    std::uint64_t allowance_ = kUnlimited;
    std::unique_ptr<char[]> block_;
    std::uint64_t blockOffset_ = 0;
    std::size_t blockLength_ = 0;
};

} // namespace platform::zip
