#pragma once

#include "platform/Export.hpp"
#include "platform/package/ContentSource.hpp"
#include "platform/package/Enumerator.hpp"
#include "platform/package/FileSystemEntry.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/Package.hpp"

#include <memory>

namespace opc::qorservices {

/// A package as a tree of files. May be constructed before the package is opened.
class DOCPARSER_PLATFORM_EXPORT FileSystemManager {
public:
    /// \param package   the package; the manager shares its open file
    /// \param selector  the file operations that the package was opened with; not used, because a
    ///                  manager that only reads opens no files of its own
    FileSystemManager(const model::Package& package, const FileSystemOpsSelector& selector);
    ~FileSystemManager();
    FileSystemManager(const FileSystemManager&) = delete;
    FileSystemManager& operator=(const FileSystemManager&) = delete;

    /// Lists the files of the package in the order of its directory. Entries with equal names are
    /// different files.
    ///
    /// Skipped are folders (their names end with a separator) and the entries that describe the
    /// package: "[Content_Types].xml" at its root and "*.rels" in folders named "_rels".
    /// \throws PackageError  the package is not open
    Enumerator<FileSystemEntry> getAllLeafs() const;

    /// Returns the content of a file without reading any of it.
    /// \param entry  an entry that getAllLeafs() returned, or a copy of it
    /// \param mode   TransformMode::Decoded
    /// \throws PackageError           the entry belongs to another package or to a closed one
    /// \throws std::invalid_argument  any other mode
    std::unique_ptr<ContentSource> getFileContentSource(const FileSystemEntry& entry,
                                                        TransformMode mode);

private:
    std::shared_ptr<platform::zip::ZipArchive> archive_;
};

} // namespace opc::qorservices
