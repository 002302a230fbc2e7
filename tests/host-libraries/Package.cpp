// The package library, based on libzip.

#include "platform/ReadLimits.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/StreamHelper.hpp"

#include <zip.h>

#include <array>
#include <filesystem>
#include <ostream>
#include <stdexcept>

namespace storage::microservicestoragesystem {

StorageSystemReference GetStorageSystemReference() {
    return {};
}

} // namespace storage::microservicestoragesystem

namespace opc {

class ZipArchive {
public:
    explicit ZipArchive(const std::string& file)
        : handle_(zip_open(file.c_str(), ZIP_RDONLY, nullptr), zip_discard) {
        if (!handle_)
            throw std::runtime_error("not a zip file: " + file);
        if (shortestDirectory() > platform::readLimits().directoryBytes)
            throw platform::LimitError("the directory is too large: " + file);
    }

    zip_t* handle() const noexcept { return handle_.get(); }
    std::uint64_t entryCount() const noexcept {
        return static_cast<std::uint64_t>(zip_get_num_entries(handle(), 0));
    }
    std::string entryName(std::uint64_t index) const { return zip_get_name(handle(), index, 0); }

    std::uint64_t deliveredBytes = 0; // total of all entries

private:
    // The length of the directory if its entries have no comments or extra fields.
    std::uint64_t shortestDirectory() const {
        std::uint64_t length = 0;
        for (std::uint64_t index = 0; index < entryCount(); ++index)
            length += 46 + entryName(index).size();
        return length;
    }

    std::unique_ptr<zip_t, decltype(&zip_discard)> handle_;
};

namespace zippackage {

ZipPhysicalPackage::ZipPhysicalPackage(const std::u16string& path, const FileSystemOpsSelector&,
                                       bool)
    : file_(fl::i18n::to_string(path)) {
    if (!std::filesystem::is_regular_file(file_))
        throw std::runtime_error("not a file: " + file_);
}

} // namespace zippackage

namespace model {

Package::Package(const zippackage::ZipPhysicalPackage& physical) : physical_(physical) {}

Package::~Package() = default;

void Package::open(OpenMode) {
    archive_ = std::make_unique<ZipArchive>(physical_.file());
}

} // namespace model

namespace {

class EntryStream final : public InputStream {
public:
    EntryStream(ZipArchive& archive, std::uint64_t index)
        : archive_(archive), file_(zip_fopen_index(archive.handle(), index, 0)) {
        if (!file_)
            throw std::runtime_error("an entry cannot be opened");
        zip_stat_index(archive.handle(), index, 0, &description_);
    }
    ~EntryStream() override { zip_fclose(file_); }
    EntryStream(const EntryStream&) = delete;
    EntryStream& operator=(const EntryStream&) = delete;

    std::size_t read(char* buffer, std::size_t length) override {
        const zip_int64_t count = zip_fread(file_, buffer, length);
        if (count < 0 || (count == 0 && deliveredBytes_ != description_.size))
            throw std::runtime_error("an entry is damaged");
        countDelivered(static_cast<std::uint64_t>(count));
        return static_cast<std::size_t>(count);
    }

private:
    void countDelivered(std::uint64_t count) {
        deliveredBytes_ += count;
        archive_.deliveredBytes += count;
        const platform::ReadLimits limits = platform::readLimits();
        if (deliveredBytes_ > limits.entryBytes || archive_.deliveredBytes > limits.packageBytes)
            throw platform::LimitError("an entry is too large");
    }

    ZipArchive& archive_;
    zip_file_t* file_;
    zip_stat_t description_{};
    std::uint64_t deliveredBytes_ = 0;
};

class ZipContentSource final : public ContentSource {
public:
    ZipContentSource(ZipArchive& archive, std::uint64_t index) : archive_(archive), index_(index) {}

    std::unique_ptr<InputStream> openInputStream() override {
        return std::make_unique<EntryStream>(archive_, index_);
    }

private:
    ZipArchive& archive_;
    std::uint64_t index_;
};

// Whether the entry is a file rather than a folder or packaging metadata.
bool isLeaf(const std::u16string& name) {
    return !name.ends_with(u'/') && name != u"[Content_Types].xml" && !name.ends_with(u".rels");
}

} // namespace

namespace qorservices {

FileSystemManager::FileSystemManager(const model::Package& package, const FileSystemOpsSelector&)
    : package_(package) {}

std::vector<FileSystemEntry> FileSystemManager::getAllLeafs() {
    const fl::i18n::codecvt_string_to_ustring decoder("utf8", true);
    const ZipArchive& archive = *package_.archive();
    std::vector<FileSystemEntry> leaves;
    for (std::uint64_t index = 0; index < archive.entryCount(); ++index) {
        const std::string bytes = archive.entryName(index);
        const std::u16string name = decoder.convert(bytes.data(), bytes.size());
        if (isLeaf(name))
            leaves.push_back({index, name.substr(name.find_last_of(u"/\\") + 1)});
    }
    return leaves;
}

std::unique_ptr<ContentSource> FileSystemManager::getFileContentSource(const FileSystemEntry& entry,
                                                                       TransformMode) {
    return std::make_unique<ZipContentSource>(*package_.archive(), entry.index_);
}

} // namespace qorservices

bool StreamHelper::copyStreamToStream(InputStream& input, std::ostream& output) {
    std::array<char, 4096> buffer;
    while (const std::size_t count = input.read(buffer.data(), buffer.size()))
        output.write(buffer.data(), static_cast<std::streamsize>(count));
    return output.good();
}

} // namespace opc
