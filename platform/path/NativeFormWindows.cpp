#include "platform/path/Path.hpp"
#include "platform/system/WindowsPath.hpp"

#include <system_error>

namespace fl::filesystem {

platform::NativePath make_native_access_form_with_cleanup_i18n(const path& file) {
    const path native = make_native_form(file);
    const std::u16string& text = native.string();
    if (text.find(u'\0') != std::u16string::npos)
        throw std::system_error(std::make_error_code(std::errc::invalid_argument),
                                "a path holds NUL");
    return platform::withLongPathPrefix({text.begin(), text.end()});
}

path from_native_access_form(const platform::NativePath& file) {
    return std::u16string(file.begin(), file.end());
}

} // namespace fl::filesystem
