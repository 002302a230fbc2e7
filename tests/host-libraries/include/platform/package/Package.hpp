#pragma once

#include "platform/package/ZipPhysicalPackage.hpp"

#include <memory>

namespace opc {

class ZipArchive; // an open zip file of libzip

enum class OpenMode { Read };

namespace model {

class Package {
public:
    explicit Package(const zippackage::ZipPhysicalPackage& physical);
    ~Package();
    Package(const Package&) = delete;
    Package& operator=(const Package&) = delete;

    void open(OpenMode mode);

    /// Null while the package is not open.
    ZipArchive* archive() const noexcept { return archive_.get(); }

private:
    const zippackage::ZipPhysicalPackage& physical_;
    std::unique_ptr<ZipArchive> archive_;
};

} // namespace model
} // namespace opc
