#pragma once

#include "platform/Export.hpp"

#include <cstdint>
#include <memory>
#include <string>

namespace platform::zip {
class ZipArchive;
}

namespace opc::qorservices {

class FileSystemManager;

/// A file in an open package: its name and its position in the package's directory.
///
/// A value: copies stand for the same file. It does not keep the package open and can be read only
/// while the package is open; its name stays available. The name is never used as a path on disk:
/// it may be absolute, contain ".." or equal the name of another entry.
class DOCPARSER_PLATFORM_EXPORT FileSystemEntry {
public:
    /// Returns the name without its folders: what follows the last '/' or '\'. May be empty.
    const std::u16string& getBaseName() const noexcept { return baseName_; }

    /// Returns the name as stored in the package, folders included, with each NUL replaced by a
    /// space.
    ///
    /// Well-formed UTF-8 is decoded as UTF-8, flagged as such or not. Other names are decoded as
    /// CP437, unless the package flags them as UTF-8: then U+FFFD replaces each ill-formed
    /// sequence.
    const std::u16string& getName() const noexcept { return name_; }

private:
    friend class FileSystemManager;

    FileSystemEntry(std::weak_ptr<platform::zip::ZipArchive> archive, std::uint64_t index,
                    std::u16string name);

    std::weak_ptr<platform::zip::ZipArchive> archive_; // tells the entries of two packages apart
    std::uint64_t index_;
    std::u16string name_;
    std::u16string baseName_;
};

} // namespace opc::qorservices
