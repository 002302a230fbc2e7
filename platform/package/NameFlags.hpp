#pragma once

#include "platform/package/PackageFile.hpp"

#include <cstdint>
#include <vector>

namespace opc::detail {

/// An entry whose name and comment are flagged as UTF-8 in the package's directory.
struct FlaggedEntry {
    std::uint64_t index;      ///< place of the entry in the directory, from 0
    std::uint64_t flagOffset; ///< place in the file of the byte that holds the flag
};

/// The flag's bit in that byte.
constexpr unsigned char kUtf8NameFlag = 0x08;

/// Finds the flagged entries of a package, in the order of its directory.
///
/// Looked for only when a package is refused: libzip refuses one for a single flagged name that is
/// no UTF-8. Read with the flags cleared it opens, and its other entries can be had.
/// \returns  empty when the package has none, or no directory that can be followed to its end
/// \throws std::system_error  the file cannot be read
/// \throws std::length_error  see PackageFile::read
std::vector<FlaggedEntry> findFlaggedEntries(PackageFile& file);

} // namespace opc::detail
