#pragma once

#include "platform/package/FileSystemOpsSelector.hpp"

#include <string>

namespace opc::zippackage {

/// The path of a package, which must be a regular zip file.
class ZipPhysicalPackage {
public:
    ZipPhysicalPackage(const std::u16string& path, const FileSystemOpsSelector& selector,
                       bool isReadOnly);

    const std::string& file() const noexcept { return file_; }

private:
    std::string file_;
};

} // namespace opc::zippackage
