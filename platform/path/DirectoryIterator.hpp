#pragma once

#include "platform/Export.hpp"
#include "platform/path/Path.hpp"
#include "platform/system/Folder.hpp"

#include <optional>
#include <string_view>

namespace fl::filesystem {

/// Walks the entries that lie directly in a folder, in the system's own order, which is not
/// sorted; "." and ".." are left out and hidden files are not.
///
/// The walk is over when is_open() is false. Names that are no valid text have U+FFFD in place of
/// the ill-formed bytes.
class DOCPARSER_PLATFORM_EXPORT directory_iterator {
public:
    /// Starts at the folder's first entry; not open when the folder is empty or can't be read.
    /// \param pattern  which names to list; "*", all of them, is the one pattern there is
    /// \throws std::system_error      the folder's path can name no file
    /// \throws std::invalid_argument  another pattern
    directory_iterator(const path& folder, std::u16string_view pattern);

    /// Whether there is an entry to look at.
    bool is_open() const noexcept { return name_.has_value(); }

    /// Goes to the next entry. The iterator is open.
    /// \throws std::system_error  the folder can no longer be read
    void increment();

    /// The entry's name. The iterator is open.
    const path& filename() const { return *name_; }

    /// The folder joined with the entry's name. The iterator is open.
    path full_pathname() const;

private:
    path folder_;
    std::optional<platform::Folder> entries_; // empty when the folder can't be read
    std::optional<path> name_;                // of the entry; empty when the walk is over
};

} // namespace fl::filesystem
