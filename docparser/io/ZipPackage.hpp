#pragma once

#include "docparser/discovery/ProductZipData.hpp"
#include "docparser/shared/LoadAccount.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/Package.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"

#include <string>
#include <vector>

namespace reference::docparser {

/// A zip package, open for reading as long as this lives.
class ZipPackage {
public:
    /// \param zipFile   the package's path
    /// \param selector  the file operations, shared by all packages of one retrieval
    /// \throws std::exception  there is no such file, or it is no package
    ZipPackage(const std::u16string& zipFile, const opc::FileSystemOpsSelector& selector);

    ZipPackage(const ZipPackage&) = delete;
    ZipPackage& operator=(const ZipPackage&) = delete;

    /// The package's product files, in its order; each is valid while the package is open.
    ///
    /// Entries count by their base names, as files in a folder do, and those of other languages
    /// than the current one are left out. In a package of one entry the package's own name says
    /// whether the entry is a translation, whatever the entry is called.
    /// \param isNonEnglishLocale   whether the package's own name is that of a translation
    /// \param localeSuffixes       what marks a translated entry of several
    /// \param currentLocaleSuffix  the mark of the translations to keep
    /// \param account  where to tell of the entries that are left out; null: nobody asks
    /// \throws std::exception  the entries can't be listed
    std::vector<ProductZipData> findProducts(bool isNonEnglishLocale,
                                             const std::vector<std::u16string>& localeSuffixes,
                                             const std::u16string& currentLocaleSuffix,
                                             LoadAccount* account = nullptr);

private:
    std::u16string path_;
    opc::zippackage::ZipPhysicalPackage physical_;
    opc::model::Package package_;
    opc::qorservices::FileSystemManager manager_;
};

} // namespace reference::docparser
