#pragma once

#include "platform/SeamExport.hpp"
#include "platform/system/NativePath.hpp"

#include <memory>
#include <optional>

namespace platform {

/// A folder that is being listed; it is closed with the object.
///
/// Replaces std::filesystem::directory_iterator, which in GCC's library terminates the process if
/// an allocation fails.
class DOCPARSER_SEAM_EXPORT Folder {
public:
    /// Opens a folder.
    /// \returns  empty if there is no such folder, it may not be read, or the path contains NUL
    static std::optional<Folder> open(const NativePath& folder) noexcept;

    /// Returns the next name in the system's own order, without "." and ".."; empty after the last.
    /// \throws std::system_error  the folder can no longer be read
    std::optional<NativePath> next();

private:
    struct DOCPARSER_SEAM_EXPORT Close {
        void operator()(void* handle) const noexcept;
    };

    explicit Folder(void* handle) noexcept : handle_(handle) {}

    std::unique_ptr<void, Close> handle_; // the system's
};

} // namespace platform
