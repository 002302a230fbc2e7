#include "docparser/retrieval/LookupZips.hpp"

#include "docparser/io/ZipPackage.hpp"
#include "docparser/retrieval/FileReport.hpp"
#include "docparser/retrieval/LookupAccount.hpp"
#include "docparser/retrieval/LookupProducts.hpp"
#include "platform/Failure.hpp"
#include "platform/package/StorageSystem.hpp"

namespace reference::docparser {

LookupResults readZipLookups(const std::vector<ProductPathData>& zipPackages,
                             const LookupReadContext& context) {
    LookupResults result;
    const opc::FileSystemOpsSelector selector(
        storage::microservicestoragesystem::GetStorageSystemReference());
    LoadAccount* const account = loadAccountOf(context);
    for (const ProductPathData& zipFile : zipPackages) {
        FileReport report(account, FileRole::Package, zipFile.getFullPath(), {},
                          zipFile.isNonEnglishLocale());
        // A broken package costs its own products; what they had merged already stays.
        const std::exception_ptr failure = platform::failureOf([&] {
            ZipPackage package(zipFile.getFullPath(), selector);
            const std::vector<ProductZipData> products =
                package.findProducts(zipFile.isNonEnglishLocale(), context.supportedLocales,
                                     context.localeSuffix, account);
            readZipPackageLookups(products, zipFile.getFullPath(), context, result);
        });
        if (failure && report.problem())
            *report.problem() = problemOfOpening(zipFile.getFullPath(), failure);
        report.conclude(failure);
    }
    return result;
}

} // namespace reference::docparser
