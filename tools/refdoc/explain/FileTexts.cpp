#include "tools/refdoc/explain/FileTexts.hpp"

#include "platform/ReadLimits.hpp"
#include "platform/except/Completes.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/Package.hpp"
#include "platform/package/StorageSystem.hpp"
#include "platform/package/StreamHelper.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"
#include "platform/path/Path.hpp"
#include "platform/path/RegularFile.hpp"

#include <cstdint>
#include <map>
#include <utility>

namespace refdoc {

using foundation::core::except::completes;
using opc::qorservices::FileSystemEntry;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;

namespace {

std::optional<std::string> readPlainFile(const std::u16string& path) {
    const auto file = fl::filesystem::RegularFile::open(
        fl::filesystem::make_native_access_form_with_cleanup_i18n(path));
    const std::uint64_t size = file ? file->size() : 0;
    if (!file || size > platform::readLimits().fileBytes)
        return std::nullopt;
    std::string text(static_cast<std::size_t>(size), '\0');
    text.resize(file->readAt(0, text.data(), text.size()));
    return text;
}

} // namespace

class FileTexts::OpenPackage {
public:
    explicit OpenPackage(const std::u16string& path)
        : path_(path),
          physical_(path, selector_, true),
          package_(physical_),
          manager_(package_, selector_) {
        package_.open(opc::OpenMode::ReadOnly);
        for (const FileSystemEntry& entry : manager_.getAllLeafs())
            entries_[entry.getName()].push_back(entry);
    }

    const std::u16string& path() const noexcept { return path_; }

    // Throws when there are not so many entries of the name.
    std::string read(const std::u16string& name, std::size_t number) {
        const auto source = manager_.getFileContentSource(entries_.at(name).at(number),
                                                          opc::TransformMode::Decoded);
        return opc::StreamHelper::readAll(*source->openInputStream());
    }

private:
    std::u16string path_;
    opc::FileSystemOpsSelector selector_{
        storage::microservicestoragesystem::GetStorageSystemReference()};
    opc::zippackage::ZipPhysicalPackage physical_;
    opc::model::Package package_;
    opc::qorservices::FileSystemManager manager_;
    std::map<std::u16string, std::vector<FileSystemEntry>> entries_;
};

FileTexts::FileTexts(const LoadAccount& account) : account_(account) {
    std::map<std::pair<std::u16string_view, std::u16string_view>, std::size_t> counts;
    equalsBefore_.reserve(account.files.size());
    for (const FileAccount& file : account.files)
        equalsBefore_.push_back(counts[{file.path, file.entry}]++);
}

FileTexts::~FileTexts() = default;

std::optional<std::string> FileTexts::read(std::size_t index) {
    const FileAccount& file = account_.files[index];
    std::optional<std::string> text;
    // It was read a moment ago; a file that has gone since has no places any more.
    completes([&] { text = file.entry.empty() ? readPlainFile(file.path) : readEntry(index); });
    return text;
}

std::string FileTexts::readEntry(std::size_t index) {
    const FileAccount& file = account_.files[index];
    if (!package_ || package_->path() != file.path) {
        package_.reset();
        package_ = std::make_unique<OpenPackage>(file.path);
    }
    return package_->read(file.entry, equalsBefore_[index]);
}

} // namespace refdoc
