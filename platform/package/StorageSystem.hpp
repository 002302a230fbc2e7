#pragma once

#include "platform/Export.hpp"
#include "platform/system/RegularFile.hpp"

#include <memory>
#include <string>

namespace storage::microservicestoragesystem {

/// The files of this machine, as packages are found among them; any number of threads may use it.
class DOCPARSER_PLATFORM_EXPORT StorageSystem {
public:
    /// Opens a regular file; never blocks and never opens anything else (see RegularFile).
    /// \param path  in UTF-16, as the foundation path library spells paths
    /// \throws opc::PackageError  there is no such regular file, or it may not be read
    /// \throws std::system_error  the path has no form that the system takes
    platform::RegularFile openForReading(const std::u16string& path) const;
};

/// A share in the storage system, which lives as long as anyone holds one.
using StorageSystemReference = std::shared_ptr<const StorageSystem>;

/// The storage system of the process. Any thread may call.
DOCPARSER_PLATFORM_EXPORT StorageSystemReference GetStorageSystemReference();

} // namespace storage::microservicestoragesystem
