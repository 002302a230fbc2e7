#pragma once

#include "platform/zip/PackageFile.hpp"

#include <cstdint>

namespace platform::zip {

/// Checks that libzip can open a package at an acceptable cost in memory and time.
///
/// libzip reads a directory of any length, and indexes its names in a hash table whose hash
/// function is public: names with equal hashes make it compare each name with all others.
/// \param directoryBytes  the length of the longest directory that is accepted
/// \throws std::runtime_error  too many names have equal hashes
/// \throws std::system_error   the file cannot be read
/// \throws LimitError          the directory is too long
void checkDirectory(PackageFile& file, std::uint64_t directoryBytes);

} // namespace platform::zip
