#pragma once

#include "platform/path/Path.hpp"

#include <fstream>

namespace fl::filesystem {

enum class share_mode { deny_none };

template <class CharT>
class basic_ifstream;

/// A file stream that opens regular files only, so that opening never blocks.
template <>
class basic_ifstream<char> : public std::ifstream {
public:
    basic_ifstream(const native_access_form& file, std::ios_base::openmode mode, share_mode share);
};

using ifstream = basic_ifstream<char>;

} // namespace fl::filesystem
