#pragma once

#include "platform/Export.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/Folder.hpp"

#include <optional>
#include <string_view>

namespace fl::filesystem {

/// Iterates over the entries directly in a folder, in the system's own order, which is not sorted.
/// Hidden files are included; "." and ".." are not.
///
/// The iteration has ended when is_open() is false. Ill-formed parts of a name are replaced by
/// U+FFFD.
class DOCPARSER_PLATFORM_EXPORT directory_iterator {
public:
    /// Starts at the first entry; not open if the folder is empty or cannot be read.
    /// \param pattern  which names to list; only "*", all of them, is supported
    /// \throws std::system_error      `folder` has no native form
    /// \throws std::invalid_argument  another pattern
    directory_iterator(const path& folder, std::u16string_view pattern);

    /// Returns whether there is a current entry.
    bool is_open() const noexcept { return name_.has_value(); }

    /// Goes to the next entry. The iterator must be open.
    /// \throws std::system_error  the folder can no longer be read
    void increment();

    /// Returns the name of the current entry. The iterator must be open.
    const path& filename() const { return *name_; }

    /// Returns the folder joined with the name of the current entry. The iterator must be open.
    path full_pathname() const;

private:
    path folder_;
    std::optional<platform::Folder> entries_; // empty if the folder cannot be read
    std::optional<path> name_;                // of the current entry; empty at the end
};

} // namespace fl::filesystem
