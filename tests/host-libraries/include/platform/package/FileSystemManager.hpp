#pragma once

#include "platform/package/ContentSource.hpp"
#include "platform/package/FileSystemEntry.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"
#include "platform/package/Package.hpp"

#include <memory>
#include <vector>

namespace opc::qorservices {

class FileSystemManager {
public:
    FileSystemManager(const model::Package& package, const FileSystemOpsSelector& selector);

    /// The files of the package, except packaging metadata.
    std::vector<FileSystemEntry> getAllLeafs();
    std::unique_ptr<ContentSource> getFileContentSource(const FileSystemEntry& entry,
                                                        TransformMode mode);

private:
    const model::Package& package_;
};

} // namespace opc::qorservices
