#pragma once

namespace storage::microservicestoragesystem {

class StorageSystemReference {};

StorageSystemReference GetStorageSystemReference();

} // namespace storage::microservicestoragesystem
