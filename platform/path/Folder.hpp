#pragma once

#include "platform/Export.hpp"
#include "platform/path/Path.hpp"

#include <memory>
#include <optional>

namespace fl::filesystem {

/// A folder that is being listed; it is closed with the object.
///
/// The standard library's iterator would do but for one thing: where memory is short, that of GCC
/// ends the process.
class DOCPARSER_PLATFORM_EXPORT Folder {
public:
    /// Opens the folder; empty when there is no such folder, it may not be read, or the path holds
    /// NUL.
    static std::optional<Folder> open(const native_string& folder) noexcept;

    /// The next name in the system's own order, without "." and ".."; empty after the last.
    /// \throws std::system_error  the folder can no longer be read
    std::optional<native_string> next();

private:
    struct Close {
        void operator()(void* handle) const noexcept;
    };

    explicit Folder(void* handle) noexcept : handle_(handle) {}

    std::unique_ptr<void, Close> handle_; // the system's
};

} // namespace fl::filesystem
