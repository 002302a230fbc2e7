#include "platform/package/ZipPhysicalPackage.hpp"

#include "platform/zip/ZipArchive.hpp"

#include <stdexcept>

namespace opc::zippackage {

ZipPhysicalPackage::ZipPhysicalPackage(const std::u16string& path,
                                       const FileSystemOpsSelector& selector, bool isReadOnly) {
    if (!isReadOnly)
        throw std::invalid_argument("packages are read only");
    archive_ = std::make_shared<platform::zip::ZipArchive>(selector.openForReading(path), path);
}

ZipPhysicalPackage::~ZipPhysicalPackage() = default;

} // namespace opc::zippackage
