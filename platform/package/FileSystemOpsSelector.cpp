#include "platform/package/FileSystemOpsSelector.hpp"

#include <stdexcept>
#include <utility>

namespace opc {

FileSystemOpsSelector::FileSystemOpsSelector(
    storage::microservicestoragesystem::StorageSystemReference storage)
    : storage_(std::move(storage)) {
    if (!storage_)
        throw std::invalid_argument("no storage system to take file operations from");
}

platform::RegularFile FileSystemOpsSelector::openForReading(const std::u16string& path) const {
    return storage_->openForReading(path);
}

} // namespace opc
