#pragma once

#include "platform/Export.hpp"
#include "platform/package/FileSystemOpsSelector.hpp"

#include <memory>
#include <string>

namespace opc {

namespace detail {
class ZipArchive;
}
namespace model {
class Package;
}

namespace zippackage {

/// The file that a package is stored in. It is open from the constructor on, but nothing of it has
/// been read.
class DOCPARSER_PLATFORM_EXPORT ZipPhysicalPackage {
public:
    /// \param path        the zip file, in UTF-16
    /// \param selector    opens the file; not needed afterwards
    /// \param isReadOnly  true: packages are never written
    /// \throws PackageError           there is no such regular file, or it may not be read
    /// \throws std::system_error      the path has no form that the system takes
    /// \throws std::invalid_argument  isReadOnly is false
    ZipPhysicalPackage(const std::u16string& path, const FileSystemOpsSelector& selector,
                       bool isReadOnly);
    ~ZipPhysicalPackage();
    ZipPhysicalPackage(const ZipPhysicalPackage&) = delete;
    ZipPhysicalPackage& operator=(const ZipPhysicalPackage&) = delete;

private:
    friend class model::Package;

    std::shared_ptr<detail::ZipArchive> archive_;
};

} // namespace zippackage
} // namespace opc
