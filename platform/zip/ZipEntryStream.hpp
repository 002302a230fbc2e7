#pragma once

#include "platform/ReadLimits.hpp"
#include "platform/zip/ZipArchive.hpp"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace platform::zip {

/// The decompressed content of one entry, checked against its checksum, its size and the limits.
class ZipEntryStream {
public:
    /// \param archive  an open package
    /// \param index    the entry's position in the directory
    /// \throws ZipError    see ZipArchive::openEntry()
    /// \throws LimitError  the package states a size beyond readLimits()
    ZipEntryStream(std::shared_ptr<ZipArchive> archive, std::uint64_t index);

    /// Reads the next bytes; see opc::InputStream::read().
    /// \throws ZipError    the content is damaged or cannot be read
    /// \throws LimitError  the content exceeds readLimits()
    std::size_t read(char* buffer, std::size_t length);

private:
    std::uint64_t affordableBytes() const noexcept;
    bool isOpen() const noexcept { return content_ || entry_; }
    void close() noexcept;
    /// Copies the next bytes; the result is that of zip_fread().
    zip_int64_t copyNext(char* buffer, std::uint64_t length);
    void finish();
    template <class Error = ZipError>
    [[noreturn]] void fail(std::string_view reason);
    /// \param bytes  the size that the entry is known to reach
    [[noreturn]] void failAtLimit(std::uint64_t bytes);

    std::shared_ptr<ZipArchive> archive_;
    std::uint64_t index_;
    ReadLimits limits_;
    zip_stat_t description_;
    // One of the two, as ZipArchive::readSmallEntry() decides; neither at the end or after a
    // failure.
    std::unique_ptr<char[]> content_;
    ZipFileHandle entry_;
    std::uint64_t deliveredBytes_ = 0;
    bool isComplete_ = false;
};

} // namespace platform::zip
