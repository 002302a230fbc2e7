#include "tools/refdoc/explain/FileText.hpp"

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

namespace refdoc {

using foundation::core::except::completes;
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

// How many entries of the file's name the account has before it.
std::size_t entriesBefore(const LoadAccount& account, std::size_t index) {
    const FileAccount& file = account.files[index];
    std::size_t count = 0;
    for (std::size_t other = 0; other < index; ++other) {
        const FileAccount& earlier = account.files[other];
        count += earlier.path == file.path && earlier.entry == file.entry ? 1 : 0;
    }
    return count;
}

std::optional<std::string> readEntry(const LoadAccount& account, std::size_t index) {
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    const opc::zippackage::ZipPhysicalPackage physical(account.files[index].path, selector, true);
    opc::model::Package package(physical);
    package.open(opc::OpenMode::ReadOnly);
    opc::qorservices::FileSystemManager manager(package, selector);

    std::size_t skipped = entriesBefore(account, index);
    for (const opc::qorservices::FileSystemEntry& entry : manager.getAllLeafs()) {
        if (entry.getName() != account.files[index].entry || skipped-- > 0)
            continue;
        const auto source = manager.getFileContentSource(entry, opc::TransformMode::Decoded);
        return opc::StreamHelper::readAll(*source->openInputStream());
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> readFileText(const LoadAccount& account, std::size_t index) {
    const FileAccount& file = account.files[index];
    std::optional<std::string> text;
    // It was read a moment ago; a file that has gone since has no places any more.
    completes(
        [&] { text = file.entry.empty() ? readPlainFile(file.path) : readEntry(account, index); });
    return text;
}

} // namespace refdoc
