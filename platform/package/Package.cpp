#include "platform/package/Package.hpp"

#include "platform/package/ZipErrors.hpp"

#include <stdexcept>

namespace opc::model {

Package::Package(const zippackage::ZipPhysicalPackage& physical) : archive_(physical.archive_) {}

Package::~Package() = default;

void Package::open(OpenMode mode) {
    if (mode != OpenMode::ReadOnly)
        throw std::invalid_argument("packages are opened for reading only");
    withPackageErrors([&] { archive_->open(); });
}

} // namespace opc::model
