#pragma once

#include <filesystem>

namespace platform {

/// A path as the system's calls take it: bytes in UTF-8, or UTF-16 on Windows.
///
/// A plain string, because a std::filesystem::path splits itself into components on each
/// construction.
using NativePath = std::filesystem::path::string_type;

} // namespace platform
