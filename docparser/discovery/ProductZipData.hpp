#pragma once

#include "docparser/Export.hpp"
#include "docparser/discovery/ProductData.hpp"
#include "platform/package/FileSystemEntry.hpp"
#include "platform/package/FileSystemManager.hpp"

#include <string>
#include <utility>

namespace reference::docparser {

/// A product file that is an entry of an open zip package.
///
/// The record does not keep the package open: it is valid only while its package is open and the
/// package's manager exists.
class DOCPARSER_EXPORT ProductZipData : public ProductData {
public:
    /// \param entry    the package entry that holds the file
    /// \param manager  the file-system manager of the open package
    ProductZipData(std::u16string name, bool nonEnglishLocale,
                   opc::qorservices::FileSystemEntry entry,
                   opc::qorservices::FileSystemManager& manager)
        : ProductData(std::move(name), nonEnglishLocale),
          entry_(std::move(entry)),
          fileSystemManager_(&manager) {}

    /// Returns the entry that holds the file.
    const opc::qorservices::FileSystemEntry& getEntry() const noexcept { return entry_; }

    /// Returns the manager of the package. It is not const because reading an entry changes it.
    opc::qorservices::FileSystemManager& getFileSystemManager() const noexcept {
        return *fileSystemManager_;
    }

private:
    const opc::qorservices::FileSystemEntry entry_;
    opc::qorservices::FileSystemManager* const fileSystemManager_;
};

} // namespace reference::docparser
