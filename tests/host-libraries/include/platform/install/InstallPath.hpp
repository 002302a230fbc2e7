#pragma once

#include <string>

namespace fl::filesystem {

std::u16string get_install_path();

} // namespace fl::filesystem
