#pragma once

#include "platform/Export.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/Enumerator.hpp"
#include "platform/package/FileSystemEntry.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/Package.hpp"

#include <memory>

namespace opc::qorservices {

/// A package seen as a tree of files. May be built before the package is opened.
class DOCPARSER_PLATFORM_EXPORT FileSystemManager {
public:
    /// \param package   the package, which the manager shares from now on
    /// \param selector  the file operations that its file was opened with; a view that is only read
    ///                  needs no file of its own and leaves them alone
    FileSystemManager(const model::Package& package, const FileSystemOpsSelector& selector);
    ~FileSystemManager();
    FileSystemManager(const FileSystemManager&) = delete;
    FileSystemManager& operator=(const FileSystemManager&) = delete;

    /// Every file of the package, in the order of its directory; entries of equal names are
    /// different files.
    ///
    /// Not among them are folders (their names end with a separator) and what describes the
    /// package: "[Content_Types].xml" at its root and "*.rels" in folders named "_rels".
    /// \throws PackageError  the package is not open
    Enumerator<FileSystemEntry> getAllLeafs() const;

    /// The content of a file of this package; nothing of it is read yet.
    /// \param entry  as getAllLeafs() gave it, or a copy
    /// \param mode   TransformMode::Decoded
    /// \throws PackageError           the entry belongs to another package, or to one that has been
    ///                                closed
    /// \throws std::invalid_argument  the mode is another one
    std::unique_ptr<ContentSource> getFileContentSource(const FileSystemEntry& entry,
                                                        TransformMode mode);

private:
    std::shared_ptr<detail::ZipArchive> archive_;
};

} // namespace opc::qorservices
