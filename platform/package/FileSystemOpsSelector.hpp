#pragma once

#include "platform/Export.hpp"
#include "platform/package/StorageSystem.hpp"

#include <string>

namespace opc {

/// The file operations that packages are opened with. One selector serves any number of packages.
class DOCPARSER_PLATFORM_EXPORT FileSystemOpsSelector {
public:
    /// \param storage  opens the files; the selector shares its ownership
    /// \throws std::invalid_argument  `storage` is null
    explicit FileSystemOpsSelector(
        storage::microservicestoragesystem::StorageSystemReference storage);

    /// Opens a regular file for reading; throws as StorageSystem::openForReading() does.
    platform::RegularFile openForReading(const std::u16string& path) const;

private:
    storage::microservicestoragesystem::StorageSystemReference storage_;
};

} // namespace opc
