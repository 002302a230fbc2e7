#pragma once

#include "docparser/discovery/ProductZipData.hpp"
#include "docparser/shared/RetrievalObserver.hpp"
#include "platform/package/FileSystemManager.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/Package.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"

#include <string>
#include <vector>

namespace reference::docparser {

/// Returns an entry's name including its folders.
///
/// An application's package library need only provide the base name, because nothing else decides
/// how an entry is used. If it provides no full name, this is the base name.
template <class Entry>
const std::u16string& entryNameOf(const Entry& entry) {
    if constexpr (requires { entry.getName(); })
        return entry.getName();
    else
        return entry.getBaseName();
}

/// A zip package, open for reading during the object's lifetime.
class ZipPackage {
public:
    /// \param zipFile   the package's path
    /// \param selector  the file operations, shared by all packages of one retrieval
    /// \throws std::exception  the file does not exist or is not a package
    ZipPackage(const std::u16string& zipFile, const opc::FileSystemOpsSelector& selector);

    ZipPackage(const ZipPackage&) = delete;
    ZipPackage& operator=(const ZipPackage&) = delete;

    /// Returns the package's product files in the package's order; each is valid while the package
    /// is open.
    ///
    /// Entries are selected by their base names, like files in a folder. If a package has only one
    /// entry, that entry is a translation exactly if the package is, whatever its own name.
    /// \param isNonEnglishLocale   whether the package's own name is that of a translation
    /// \param localeSuffixes       the suffixes that mark a translation
    /// \param currentLocaleSuffix  the suffix of the translations to keep
    /// \throws std::exception  the entries cannot be listed
    std::vector<ProductZipData> findProducts(bool isNonEnglishLocale,
                                             const std::vector<std::u16string>& localeSuffixes,
                                             const std::u16string& currentLocaleSuffix,
                                             RetrievalObserver& observer);

private:
    opc::zippackage::ZipPhysicalPackage physical_;
    opc::model::Package package_;
    opc::qorservices::FileSystemManager manager_;
};

} // namespace reference::docparser
