#include "tools/refdoc/session/SourceTexts.hpp"

#include "platform/Failure.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/Package.hpp"
#include "platform/package/StorageSystem.hpp"
#include "platform/package/StreamHelper.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <algorithm>
#include <map>
#include <sstream>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace refdoc {

using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;

namespace {

opc::FileSystemOpsSelector fileOperations() {
    return opc::FileSystemOpsSelector(
        storage::microservicestoragesystem::GetStorageSystemReference());
}

std::string readFile(const std::u16string& path, std::optional<std::size_t> length) {
    std::string text;
    fl::filesystem::ifstream stream(fl::filesystem::make_native_access_form_with_cleanup_i18n(path),
                                    std::ios::in | std::ios::binary,
                                    fl::filesystem::share_mode::deny_none);
    if (!stream.is_open())
        return text;
    stream.seekg(0, std::ios::end);
    const auto size = static_cast<std::size_t>(std::max<std::streamoff>(stream.tellg(), 0));
    text.resize(std::min(size, length.value_or(size)));
    stream.seekg(0, std::ios::beg);
    stream.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(stream.gcount()));
    return text;
}

std::string readStream(opc::InputStream& stream, std::optional<std::size_t> length) {
    if (!length) {
        std::ostringstream content;
        // By default a stream hides that an allocation failed.
        content.exceptions(std::ios::badbit);
        opc::StreamHelper::copyStreamToStream(stream, content);
        return std::move(content).str();
    }
    std::string text(*length, '\0');
    text.resize(stream.read(text.data(), text.size()));
    return text;
}

} // namespace

std::vector<SourceFile> sourceFiles(const LoadAccount& account) {
    std::vector<SourceFile> files;
    std::map<std::pair<std::u16string_view, std::u16string_view>, std::size_t> seen;
    for (const FileAccount& file : account.files) {
        const bool isEntry = !file.entry.empty();
        files.push_back({file.path, file.entry, isEntry ? seen[{file.path, file.entry}]++ : 0});
    }
    return files;
}

struct SourceTexts::OpenPackage {
    explicit OpenPackage(const std::u16string& file)
        : path(file),
          physical(file, fileOperations(), /*isReadOnly=*/true),
          package(physical),
          manager(package, fileOperations()) {
        package.open(opc::OpenMode::ReadOnly);
        leaves = manager.getAllLeafs().elements();
        for (const opc::qorservices::FileSystemEntry& leaf : leaves)
            byName[leaf.getName()].push_back(&leaf);
    }

    std::u16string path;
    opc::zippackage::ZipPhysicalPackage physical;
    opc::model::Package package;
    opc::qorservices::FileSystemManager manager;
    std::vector<opc::qorservices::FileSystemEntry> leaves;
    std::unordered_map<std::u16string_view, std::vector<const opc::qorservices::FileSystemEntry*>>
        byName;
};

SourceTexts::SourceTexts() = default;
SourceTexts::~SourceTexts() = default;

std::string SourceTexts::read(const SourceFile& file, std::optional<std::size_t> length) {
    std::string text;
    // A file that has gone since the library read it, or that cannot be read twice, looks empty.
    platform::ignoreFailure(
        [&] { text = file.entry.empty() ? readFile(file.path, length) : readEntry(file, length); });
    return text;
}

std::string SourceTexts::readEntry(const SourceFile& file, std::optional<std::size_t> length) {
    const std::lock_guard lock(mutex_);
    OpenPackage& package = open(file.path);
    const opc::qorservices::FileSystemEntry& leaf =
        *package.byName.at(file.entry).at(file.occurrence);
    const auto source = package.manager.getFileContentSource(leaf, opc::TransformMode::Decoded);
    return readStream(*source->openInputStream(), length);
}

SourceTexts::OpenPackage& SourceTexts::open(const std::u16string& path) {
    if (!package_ || package_->path != path)
        package_ = std::make_unique<OpenPackage>(path);
    return *package_;
}

} // namespace refdoc
