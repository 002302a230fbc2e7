#include "platform/package/FileSystemManager.hpp"

#include "platform/package/ZipErrors.hpp"
#include "platform/zip/EntryName.hpp"
#include "platform/zip/ZipEntryStream.hpp"

#include <stdexcept>
#include <utility>
#include <vector>

namespace opc::qorservices {

namespace {

using platform::zip::ZipArchive;
using platform::zip::ZipEntryStream;

class ZipInputStream final : public InputStream {
public:
    ZipInputStream(const std::shared_ptr<ZipArchive>& archive, std::uint64_t index)
        : stream_(withPackageErrors([&] { return ZipEntryStream(archive, index); })) {}

    std::size_t read(char* buffer, std::size_t length) override {
        return withPackageErrors([&] { return stream_.read(buffer, length); });
    }

private:
    ZipEntryStream stream_;
};

class ZipContentSource final : public ContentSource {
public:
    ZipContentSource(std::shared_ptr<ZipArchive> archive, std::uint64_t index)
        : archive_(std::move(archive)), index_(index) {}

    std::unique_ptr<InputStream> openInputStream() override {
        return std::make_unique<ZipInputStream>(archive_, index_);
    }

private:
    std::shared_ptr<ZipArchive> archive_;
    std::uint64_t index_;
};

} // namespace

FileSystemManager::FileSystemManager(const model::Package& package, const FileSystemOpsSelector&)
    : archive_(package.archive_) {}

FileSystemManager::~FileSystemManager() = default;

Enumerator<FileSystemEntry> FileSystemManager::getAllLeafs() const {
    return withPackageErrors([&] {
        std::vector<FileSystemEntry> leaves;
        const std::uint64_t count = archive_->entryCount();
        leaves.reserve(static_cast<std::size_t>(count));
        for (std::uint64_t index = 0; index < count; ++index) {
            std::u16string name = archive_->entryName(index);
            if (!platform::zip::isFolderName(name) && !platform::zip::isPackagingMetadata(name))
                leaves.push_back(FileSystemEntry(archive_, index, std::move(name)));
        }
        return Enumerator<FileSystemEntry>(std::move(leaves));
    });
}

std::unique_ptr<ContentSource> FileSystemManager::getFileContentSource(const FileSystemEntry& entry,
                                                                       TransformMode mode) {
    if (mode != TransformMode::Decoded)
        throw std::invalid_argument("entries can only be read decoded");
    if (entry.archive_.lock() != archive_)
        throw PackageError("the entry does not belong to this package");
    return std::make_unique<ZipContentSource>(archive_, entry.index_);
}

} // namespace opc::qorservices
