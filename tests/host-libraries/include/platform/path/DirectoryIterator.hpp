#pragma once

#include "platform/path/Path.hpp"

#include <filesystem>
#include <string_view>

namespace fl::filesystem {

/// The names directly in a folder.
class directory_iterator {
public:
    /// \param pattern  must be "*"
    directory_iterator(const path& folder, std::u16string_view pattern);

    bool is_open() const noexcept { return entry_ != std::filesystem::directory_iterator(); }
    void increment() { ++entry_; }
    path filename() const;
    path full_pathname() const { return folder_ / filename(); }

private:
    path folder_;
    std::filesystem::directory_iterator entry_;
};

} // namespace fl::filesystem
