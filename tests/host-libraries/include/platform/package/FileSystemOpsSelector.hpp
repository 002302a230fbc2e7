#pragma once

#include "platform/package/StorageSystem.hpp"

namespace opc {

class FileSystemOpsSelector {
public:
    explicit FileSystemOpsSelector(storage::microservicestoragesystem::StorageSystemReference) {}
};

} // namespace opc
