#pragma once

#include "platform/Export.hpp"
#include "platform/package/ZipPhysicalPackage.hpp"

#include <memory>

namespace opc {

/// How a package is opened.
enum class OpenMode { ReadOnly = 0 };

namespace qorservices {
class FileSystemManager;
}

namespace model {

/// The logical view of a package; closed until open() is called.
///
/// All objects of one package share its open file. The file is closed when the last of them is
/// destroyed, in any order. They serve one thread at a time; different packages are independent.
class DOCPARSER_PLATFORM_EXPORT Package {
public:
    /// \param physical  the package's file, which the package shares
    explicit Package(const zippackage::ZipPhysicalPackage& physical);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    /// Opens the package: reads its directory but no entries. Has no effect on an open package.
    /// \throws PackageError           the file is not a zip package, its directory is damaged, or
    ///                                too many of its names collide in an index
    /// \throws platform::LimitError   the directory exceeds platform::readLimits()
    /// \throws std::invalid_argument  the mode is not OpenMode::ReadOnly
    void open(OpenMode mode);

private:
    friend class qorservices::FileSystemManager;

    std::shared_ptr<platform::zip::ZipArchive> archive_;
};

} // namespace model
} // namespace opc
