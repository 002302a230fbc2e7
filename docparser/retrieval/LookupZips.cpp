#include "docparser/retrieval/LookupZips.hpp"

#include "docparser/io/ZipPackage.hpp"
#include "docparser/retrieval/LookupProducts.hpp"
#include "platform/except/Completes.hpp"
#include "platform/package/StorageSystem.hpp"

namespace reference::docparser {

LookupResults readZipLookups(const std::vector<ProductPathData>& zipPackages,
                             const LookupReadContext& context) {
    LookupResults result;
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    for (const ProductPathData& zipFile : zipPackages) {
        // A broken package costs its own products; what they had merged already stays.
        foundation::core::except::completes([&] {
            ZipPackage package(zipFile.getFullPath(), selector);
            const std::vector<ProductZipData> products = package.findProducts(
                zipFile.isNonEnglishLocale(), context.supportedLocales, context.localeSuffix);
            readZipPackageLookups(products, context, result);
        });
    }
    return result;
}

} // namespace reference::docparser
