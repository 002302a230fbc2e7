#include "platform/zip/PackageFile.hpp"

#include "platform/ReadLimits.hpp"

#include <algorithm>
#include <utility>

namespace platform::zip {

namespace {

constexpr std::size_t kBlockSize = std::size_t{32} << 10;

} // namespace

PackageFile::PackageFile(RegularFile file)
    : file_(std::move(file)),
      size_(file_.size()),
      block_(std::make_unique_for_overwrite<char[]>(kBlockSize)) {}

std::size_t PackageFile::read(std::uint64_t offset, char* buffer, std::size_t length) {
    takeFromAllowance(length);
    std::size_t done = 0;
    while (done < length) {
        const std::size_t count = readOnce(offset + done, buffer + done, length - done);
        if (count == 0)
            break;
        done += count;
    }
    return done;
}

void PackageFile::takeFromAllowance(std::size_t length) {
    if (allowance_ == kUnlimited)
        return;
    if (length > allowance_)
        throw LimitError("its directory takes more reads than the limit allows");
    allowance_ -= length;
}

std::size_t PackageFile::readOnce(std::uint64_t offset, char* buffer, std::size_t length) {
    const bool isInBlock = offset >= blockOffset_ && offset - blockOffset_ < blockLength_;
    if (!isInBlock && length >= kBlockSize)
        return file_.readAt(offset, buffer, length);
    if (!isInBlock) {
        blockLength_ = 0; // the block stays empty if the read throws
        blockLength_ = file_.readAt(offset, block_.get(), kBlockSize);
        blockOffset_ = offset;
    }
    const auto begin = static_cast<std::size_t>(offset - blockOffset_);
    const std::size_t count = std::min(length, blockLength_ - begin);
    std::copy_n(block_.get() + begin, count, buffer);
    return count;
}

} // namespace platform::zip
