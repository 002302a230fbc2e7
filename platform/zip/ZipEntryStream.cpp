#include "platform/zip/ZipEntryStream.hpp"

#include "platform/system/Cancellation.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace platform::zip {

ZipEntryStream::ZipEntryStream(std::shared_ptr<ZipArchive> archive, std::uint64_t index)
    : archive_(std::move(archive)),
      index_(index),
      limits_(readLimits()),
      description_(archive_->entryDescription(index)) {
    const bool isAffordable = description_.size <= affordableBytes();
    if (isAffordable)
        content_ = archive_->readSmallEntry(index, description_);
    if (content_)
        return;
    entry_ = archive_->openEntry(index);
    if (!isAffordable)
        failAtLimit(description_.size);
}

void ZipEntryStream::close() noexcept {
    content_.reset();
    entry_.reset();
}

template <class Error>
void ZipEntryStream::fail(std::string_view reason) {
    const Error failure(archive_->entryFailure(index_, reason));
    close();
    throw failure;
}

void ZipEntryStream::failAtLimit(std::uint64_t bytes) {
    if (bytes > limits_.entryBytes)
        fail<LimitError>("it is larger than the limit of " + std::to_string(limits_.entryBytes) +
                         " bytes");
    fail<LimitError>("the entries read from the package exceed their limit of " +
                     std::to_string(limits_.packageBytes) + " bytes");
}

std::size_t ZipEntryStream::read(char* buffer, std::size_t length) {
    if (isComplete_ || length == 0)
        return 0;
    if (!isOpen())
        fail("it has failed before");

    letCancellationPass();
    const std::uint64_t affordable = affordableBytes();
    // Requesting one byte beyond the limit shows whether the entry ends at the limit.
    const std::uint64_t asked = affordable < length ? affordable + 1 : length;
    const zip_int64_t answer = copyNext(buffer, asked);
    if (answer < 0)
        fail(zip_file_strerror(entry_.get()));
    if (answer == 0) {
        finish();
        return 0;
    }
    const auto count = static_cast<std::uint64_t>(answer);
    if (count > affordable)
        failAtLimit(deliveredBytes_ + count);
    deliveredBytes_ += count;
    archive_->countDelivered(count);
    if (deliveredBytes_ > description_.size)
        fail("it is larger than the package says");
    return static_cast<std::size_t>(count);
}

zip_int64_t ZipEntryStream::copyNext(char* buffer, std::uint64_t length) {
    if (entry_)
        return zip_fread(entry_.get(), buffer, length);
    const std::uint64_t count = std::min(length, description_.size - deliveredBytes_);
    std::copy_n(content_.get() + deliveredBytes_, count, buffer);
    return static_cast<zip_int64_t>(count);
}

std::uint64_t ZipEntryStream::affordableBytes() const noexcept {
    const auto left = [](std::uint64_t limit, std::uint64_t used) {
        return limit > used ? limit - used : 0;
    };
    return std::min(left(limits_.entryBytes, deliveredBytes_),
                    left(limits_.packageBytes, archive_->deliveredBytes()));
}

void ZipEntryStream::finish() {
    if (deliveredBytes_ != description_.size)
        fail("it is smaller than the package says");
    // libzip does not check the checksum of an entry whose stated stored size is 0.
    if (deliveredBytes_ == 0 && (description_.valid & ZIP_STAT_CRC) != 0 && description_.crc != 0)
        fail("its checksum is wrong");
    isComplete_ = true;
    close();
}

} // namespace platform::zip
