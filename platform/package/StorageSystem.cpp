#include "platform/package/StorageSystem.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/package/PackageError.hpp"
#include "platform/path/Path.hpp"

#include <optional>
#include <utility>

namespace storage::microservicestoragesystem {

platform::RegularFile StorageSystem::openForReading(const std::u16string& path) const {
    using platform::RegularFile;
    std::optional<RegularFile> file =
        RegularFile::open(fl::filesystem::make_native_access_form_with_cleanup_i18n(path));
    if (!file)
        throw opc::PackageError("the package \"" + fl::i18n::to_string(path) +
                                "\" is no regular file that can be read");
    return *std::move(file);
}

StorageSystemReference GetStorageSystemReference() {
    static const StorageSystemReference reference = std::make_shared<const StorageSystem>();
    return reference;
}

} // namespace storage::microservicestoragesystem
