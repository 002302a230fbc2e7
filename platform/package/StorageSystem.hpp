#pragma once

#include "platform/Export.hpp"
#include "platform/system/RegularFile.hpp"

#include <memory>
#include <string>

namespace storage::microservicestoragesystem {

/// Opens the files of this machine for the package library. Thread-safe.
class DOCPARSER_PLATFORM_EXPORT StorageSystem {
public:
    /// Opens a regular file; never blocks and never opens anything else (see RegularFile).
    /// \param path  in UTF-16, in the form of the foundation path library
    /// \throws opc::PackageError  there is no such regular file, or it may not be read
    /// \throws std::system_error  the path has no native form
    platform::RegularFile openForReading(const std::u16string& path) const;
};

/// Shared ownership of the storage system.
using StorageSystemReference = std::shared_ptr<const StorageSystem>;

/// Returns the storage system of the process. Thread-safe.
DOCPARSER_PLATFORM_EXPORT StorageSystemReference GetStorageSystemReference();

} // namespace storage::microservicestoragesystem
