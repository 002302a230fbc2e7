#include "platform/package/FileSystemEntry.hpp"

#include "platform/zip/EntryName.hpp"

#include <utility>

namespace opc::qorservices {

FileSystemEntry::FileSystemEntry(std::weak_ptr<platform::zip::ZipArchive> archive,
                                 std::uint64_t index, std::u16string name)
    : archive_(std::move(archive)),
      index_(index),
      name_(std::move(name)),
      baseName_(platform::zip::baseNameOf(name_)) {}

} // namespace opc::qorservices
