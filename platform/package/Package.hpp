#pragma once

#include "platform/Export.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"

#include <memory>

namespace opc {

/// What a package is opened for.
enum class OpenMode { ReadOnly = 0 };

namespace qorservices {
class FileSystemManager;
}

namespace model {

/// A package as its readers see it; closed until open().
///
/// All objects of one package share its open file, which is closed with the last of them, whatever
/// the order in which they go. They serve one thread at a time; different packages are independent.
class DOCPARSER_PLATFORM_EXPORT Package {
public:
    /// \param physical  the package's file, which the package shares from now on
    explicit Package(const zippackage::ZipPhysicalPackage& physical);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    /// Opens the package: reads its directory and none of its entries. A package that is open
    /// already stays as it is.
    /// \throws PackageError           the file is no zip package, or its directory is broken or
    ///                                longer than 8 MiB
    /// \throws std::invalid_argument  the mode is not OpenMode::ReadOnly
    void open(OpenMode mode);

private:
    friend class qorservices::FileSystemManager;

    std::shared_ptr<detail::ZipArchive> archive_;
};

} // namespace model
} // namespace opc
