#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace opc::qorservices {

class FileSystemManager;

class FileSystemEntry {
public:
    const std::u16string& getBaseName() const noexcept { return baseName_; }

private:
    friend class FileSystemManager;

    FileSystemEntry(std::uint64_t index, std::u16string baseName)
        : index_(index), baseName_(std::move(baseName)) {}

    std::uint64_t index_;
    std::u16string baseName_;
};

} // namespace opc::qorservices
