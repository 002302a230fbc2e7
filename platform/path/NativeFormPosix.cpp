#include "platform/i18n/Converter.hpp"
#include "platform/path/Path.hpp"

#include <system_error>

namespace fl::filesystem {

platform::NativePath make_native_access_form_with_cleanup_i18n(const path& file) {
    const std::u16string& text = file.string();
    if (text.find(u'\0') != std::u16string::npos)
        throw std::system_error(std::make_error_code(std::errc::invalid_argument),
                                "a path holds NUL");
    if (!i18n::is_well_formed(text))
        throw std::system_error(std::make_error_code(std::errc::illegal_byte_sequence),
                                "a path holds an unpaired surrogate");
    return i18n::to_string(text);
}

path from_native_access_form(const platform::NativePath& file) {
    return i18n::to_ustring(file);
}

} // namespace fl::filesystem
