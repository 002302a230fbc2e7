#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace refdoc::check {

/// The correction of one file. Strings are bytes of the file.
struct FileChange {
    std::filesystem::path file;    ///< absolute
    std::filesystem::path newFile; ///< in the same folder; equal to `file` unless it is renamed
    std::string before;            ///< empty if the file is only renamed
    std::string after;             ///< has as many lines as `before`
    std::size_t fixCount;          ///< the findings that the change corrects
};

/// Writes the new content, then gives the file its new name. Each of the two steps is done
/// completely or not at all. Permissions are kept. The new content is a new file: its owner is the
/// user of the process, and other hard links keep the old content.
/// \throws std::filesystem::filesystem_error  the file is unchanged, or has only the new content
void write(const FileChange& change);

} // namespace refdoc::check
