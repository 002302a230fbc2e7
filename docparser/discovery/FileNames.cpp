#include "docparser/discovery/FileNames.hpp"

#include "docparser/shared/Constants.hpp"

namespace reference::docparser {

bool isValidFilename(const fl::filesystem::path& path) {
    const std::u16string extension = fl::filesystem::extract_extension(path);
    return extension == kZipExtension || extension == kJsonExtension;
}

} // namespace reference::docparser
