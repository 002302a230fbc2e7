#pragma once

#include "docparser/discovery/ProductData.hpp"
#include "docparser/io/ReadProblem.hpp"

#include <string>

namespace reference::docparser {

// Reading one resource file whole. The bytes come as they are stored: a byte-order mark and line
// ends stay, and nothing is decoded.
//
// A missing file is an empty text, and so is a folder, a pipe, a socket or a device that bears the
// file's name: none of them is opened, so none can block. A file that is there but cannot be read,
// or is larger than platform::readLimits() allows, is logged as "Problem reading JSON file: " at
// severity 512; the text is then empty, or holds zero bytes where a read failed halfway.
//
// Each call logs "Reading file: " at severity 16 before it touches the disk. No lock is held
// while a file is read. Cost: one allocation of the file's size and one read.

/// \param path     the file
/// \param problem  where to say why the text is not the file's; null: nobody asks
/// \throws std::system_error  the path cannot name a file: it holds NUL or an unpaired surrogate
std::string openAndReadFile(const std::u16string& path, ReadProblem* problem = nullptr);

/// Reads the file of a product that lies in a folder.
/// \throws std::system_error  as above
std::string openAndReadFile(const ProductPathData& product, ReadProblem* problem = nullptr);

} // namespace reference::docparser
