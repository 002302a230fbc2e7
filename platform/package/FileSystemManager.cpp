#include "platform/package/FileSystemManager.hpp"

#include "platform/package/EntryName.hpp"
#include "platform/package/PackageError.hpp"
#include "platform/package/ZipEntryStream.hpp"

#include <stdexcept>
#include <utility>
#include <vector>

namespace opc::qorservices {

namespace {

class ZipContentSource final : public ContentSource {
public:
    ZipContentSource(std::shared_ptr<detail::ZipArchive> archive, std::uint64_t index)
        : archive_(std::move(archive)), index_(index) {}

    std::unique_ptr<InputStream> openInputStream() override {
        return std::make_unique<detail::ZipEntryStream>(archive_, index_);
    }

private:
    std::shared_ptr<detail::ZipArchive> archive_;
    std::uint64_t index_;
};

} // namespace

FileSystemManager::FileSystemManager(const model::Package& package, const FileSystemOpsSelector&)
    : archive_(package.archive_) {}

FileSystemManager::~FileSystemManager() = default;

Enumerator<FileSystemEntry> FileSystemManager::getAllLeafs() const {
    std::vector<FileSystemEntry> leaves;
    const std::uint64_t count = archive_->entryCount();
    leaves.reserve(static_cast<std::size_t>(count));
    for (std::uint64_t index = 0; index < count; ++index) {
        std::u16string name = archive_->entryName(index);
        if (!detail::isFolderName(name) && !detail::isPackagingMetadata(name))
            leaves.push_back(FileSystemEntry(archive_, index, std::move(name)));
    }
    return Enumerator<FileSystemEntry>(std::move(leaves));
}

std::unique_ptr<ContentSource> FileSystemManager::getFileContentSource(const FileSystemEntry& entry,
                                                                       TransformMode mode) {
    if (mode != TransformMode::Decoded)
        throw std::invalid_argument("entries are delivered decoded only");
    if (entry.archive_.lock() != archive_)
        throw PackageError("an entry was asked for in a package that it does not belong to");
    return std::make_unique<ZipContentSource>(archive_, entry.index_);
}

} // namespace opc::qorservices
