#pragma once

#include "platform/Export.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"

#include <memory>
#include <string>

namespace platform::zip {
class ZipArchive;
}

namespace opc {

namespace model {
class Package;
}

namespace zippackage {

/// The file of a package. The constructor opens the file and reads nothing.
class DOCPARSER_PLATFORM_EXPORT ZipPhysicalPackage {
public:
    /// \param path        the zip file, in UTF-16
    /// \param selector    opens the file; not used after the constructor
    /// \param isReadOnly  must be true: packages are never written
    /// \throws PackageError           there is no such regular file, or it may not be read
    /// \throws std::system_error      the path has no native form
    /// \throws std::invalid_argument  isReadOnly is false
    ZipPhysicalPackage(const std::u16string& path, const FileSystemOpsSelector& selector,
                       bool isReadOnly);
    ~ZipPhysicalPackage();
    ZipPhysicalPackage(const ZipPhysicalPackage&) = delete;
    ZipPhysicalPackage& operator=(const ZipPhysicalPackage&) = delete;

private:
    friend class model::Package;

    std::shared_ptr<platform::zip::ZipArchive> archive_;
};

} // namespace zippackage
} // namespace opc
