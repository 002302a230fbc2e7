// Opens arbitrary bytes as a zip package and reads all its entries, then reads it as the only
// lookup package of an installation.

#include "docparser/DocResourceParser.hpp"
#include "fuzz/support/FuzzHost.hpp"
#include "fuzz/support/Require.hpp"
#include "fuzz/support/Target.hpp"
#include "platform/ReadLimits.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/PackageError.hpp"
#include "platform/package/StorageSystem.hpp"
#include "platform/package/StreamHelper.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using docparser_fuzz::require;
using reference::docparser::DocResourceParser;

constexpr std::uint64_t kEntryBytes = 4 << 20;
constexpr std::uint64_t kPackageBytes = 8 << 20;

/// The content of each leaf of a package; empty for a leaf that is refused.
using Contents = std::vector<std::optional<std::string>>;

std::optional<std::string> readLeaf(opc::qorservices::FileSystemManager& manager,
                                    const opc::qorservices::FileSystemEntry& leaf) {
    try {
        const auto source = manager.getFileContentSource(leaf, opc::TransformMode::Decoded);
        std::ostringstream content;
        opc::StreamHelper::copyStreamToStream(*source->openInputStream(), content);
        return std::move(content).str();
    } catch (const opc::PackageError&) {
        return std::nullopt;
    } catch (const platform::LimitError&) {
        return std::nullopt;
    }
}

Contents readPackage(const std::u16string& path) {
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    Contents contents;
    try {
        opc::zippackage::ZipPhysicalPackage physical(path, selector, true);
        opc::model::Package package(physical);
        opc::qorservices::FileSystemManager manager(package, selector);
        package.open(opc::OpenMode::ReadOnly);
        for (const auto& leaf : manager.getAllLeafs())
            contents.push_back(readLeaf(manager, leaf));
    } catch (const opc::PackageError&) {
        require(contents.empty(), "a package is refused when it is opened, not later");
    }
    return contents;
}

void checkPackage(const std::u16string& path) {
    const Contents contents = readPackage(path);
    std::size_t total = 0;
    for (const std::optional<std::string>& text : contents) {
        if (!text)
            continue;
        require(text->size() <= kEntryBytes, "no entry exceeds its limit");
        total += text->size();
    }
    require(total <= kPackageBytes, "no package exceeds its limit");
    require(contents == readPackage(path), "a package has the same content each time");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const docparser_tests::TemporaryFolder folder;
    platform::setReadLimits(
        {.fileBytes = kEntryBytes, .entryBytes = kEntryBytes, .packageBytes = kPackageBytes});
    platform::setHostServices(
        std::make_shared<docparser_fuzz::FuzzHost>(u"de", folder.u16() + u"/support"));
    DocResourceParser::setReferenceRoot(folder.u16());

    const std::string_view package(reinterpret_cast<const char*>(bytes), size);
    checkPackage(folder.write("docCatalog/referenceapi_lookup/X.zip", package).u16string());
    const auto lookups = DocResourceParser::getResourceLookupFiles();
    require(lookups == DocResourceParser::getResourceLookupFiles(),
            "lookups are the same each time");
    return 0;
}
