#pragma once

#include "platform/Export.hpp"

#include <cstdint>
#include <memory>
#include <string>

namespace opc {

namespace detail {
class ZipArchive;
}

namespace qorservices {

class FileSystemManager;

/// A file of an open package: its name and its place in the package's directory.
///
/// A value: copies stand for the same file. It is of use only while the package is open, and does
/// not keep it open; afterwards it can still be asked for its name. The name is a text and never a
/// path of the disk: it may be absolute, hold ".." or be that of another entry too.
class DOCPARSER_PLATFORM_EXPORT FileSystemEntry {
public:
    /// The name without its folders: what follows the last '/' or '\'. It can be empty.
    const std::u16string& getBaseName() const noexcept { return baseName_; }

    /// The name as the package has it, folders included; a NUL in it has become a space.
    ///
    /// Bytes that are well-formed UTF-8 are taken as that, flagged or not. Others are CP437, unless
    /// the package flags them as UTF-8: then U+FFFD stands for each sequence that is ill-formed.
    const std::u16string& getName() const noexcept { return name_; }

private:
    friend class FileSystemManager;

    FileSystemEntry(std::weak_ptr<detail::ZipArchive> archive, std::uint64_t index,
                    std::u16string name);

    std::weak_ptr<detail::ZipArchive> archive_; // tells the entries of two packages apart
    std::uint64_t index_;
    std::u16string name_;
    std::u16string baseName_;
};

} // namespace qorservices
} // namespace opc
