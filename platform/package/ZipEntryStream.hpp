#pragma once

#include "platform/ReadLimits.hpp"
#include "platform/package/InputStream.hpp"
#include "platform/package/ZipArchive.hpp"

#include <cstdint>
#include <memory>
#include <string_view>

namespace opc::detail {

/// The content of one entry, decompressed, held to its checksum, its size and the limits.
class ZipEntryStream final : public InputStream {
public:
    /// \param archive  an open package
    /// \param index    the entry's place in it
    /// \throws PackageError  see ZipArchive::openEntry
    ZipEntryStream(std::shared_ptr<ZipArchive> archive, std::uint64_t index);

    std::size_t read(char* buffer, std::size_t length) override;
    std::uint64_t claimedSize() const noexcept override { return description_.size; }

private:
    std::uint64_t affordableBytes() const noexcept;
    void finish();
    template <class Error = PackageError>
    [[noreturn]] void fail(std::string_view reason);

    std::shared_ptr<ZipArchive> archive_;
    std::uint64_t index_;
    platform::ReadLimits limits_;
    zip_stat_t description_;
    ZipFileHandle entry_; // null when the stream is at its end or has failed
    std::uint64_t deliveredBytes_ = 0;
    bool isComplete_ = false;
};

} // namespace opc::detail
