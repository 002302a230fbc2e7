#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Whether Windows would take a path for something other than a file or folder on a disk: a device
/// (`CON`, `folder\NUL.txt`, `\\.\COM1`), a pipe or mailslot of a server, or an alternate stream of
/// a file (`P.json:notes`). Opening those may block or have side effects.
///
/// A path that contains NUL counts too, because Windows would read it only up to the NUL. Does not
/// access the disk.
bool isDeviceOrStream(std::wstring_view path) noexcept;

/// Returns a path that Windows accepts whatever its length.
///
/// A path that would exceed the limit of 260 characters becomes absolute, without "." and "..", and
/// gets the prefix `\\?\`, or `\\?\UNC\` if it begins with a server. Other paths are unchanged.
/// \param path  with `\` between its components
std::wstring withLongPathPrefix(std::wstring path);

} // namespace platform
