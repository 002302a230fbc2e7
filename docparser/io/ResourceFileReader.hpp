#pragma once

#include "docparser/discovery/ProductData.hpp"
#include "docparser/discovery/ProductZipData.hpp"
#include "docparser/shared/RetrievalObserver.hpp"

#include <optional>
#include <string>

namespace reference::docparser {

// Reads one resource file completely. The bytes are returned as they are stored: a byte-order mark
// and CR LF stay, and nothing is decoded.
//
// Content that cannot be read is an empty string, which the parser rejects, so that the caller
// tries the next location. The reason goes to the observer. Each call logs "Reading file: " at
// severity 16 before it touches the file. No lock is held while a file is read.

/// Reads a file, with one allocation of the file's size and one read.
///
/// A folder, pipe, socket or device that has the file's name counts as a missing file: it is never
/// opened, so it cannot block. A file that exists but cannot be read, or is larger than
/// platform::readLimits() allows, is logged as "Problem reading JSON file: " at severity 512; the
/// string is then empty, or holds zero bytes where a read failed halfway.
/// \returns  the bytes; absent if the file is missing or cannot be opened
/// \throws std::system_error  `path` cannot name a file: it contains NUL or an unpaired surrogate
std::optional<std::string> openAndReadFile(const std::u16string& path, RetrievalObserver& observer);

/// Reads the file of a product in a folder, as above. A file that cannot be opened is an empty
/// string.
std::string openAndReadFile(const ProductPathData& product, RetrievalObserver& observer);

/// Reads the entry of a product in an open package.
///
/// An entry that cannot be read completely, because it is damaged, encrypted or larger than
/// platform::readLimits() allows, yields an empty string. It is logged as "Error reading file: "
/// and the product's name, at severity 16.
std::string openAndReadFile(const ProductZipData& product, RetrievalObserver& observer);

/// Returns the path of a product's file, for the observer.
const std::u16string& fileNameOf(const ProductPathData& product);

/// Returns the name of a product's entry, for the observer: including its folders if the package
/// library provides them, otherwise the base name.
const std::u16string& fileNameOf(const ProductZipData& product);

} // namespace reference::docparser
