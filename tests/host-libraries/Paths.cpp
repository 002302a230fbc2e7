// The path library and its converters.

#include "platform/HostServices.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/install/InstallPath.hpp"
#include "platform/path/DirectoryIterator.hpp"
#include "platform/path/FileStream.hpp"
#include "platform/path/Path.hpp"

#include <boost/nowide/utf/convert.hpp>

#include <algorithm>
#include <string_view>

namespace fl::i18n {

using boost::nowide::utf::convert_string;

codecvt_string_to_ustring::codecvt_string_to_ustring(const std::string&, bool) {}

std::u16string codecvt_string_to_ustring::convert(const char* text, std::size_t length) const {
    return convert_string<char16_t>(text, text + length);
}

codecvt_ascii_to_ustring::codecvt_ascii_to_ustring(bool) {}

std::u16string codecvt_ascii_to_ustring::convert(const char* text, std::size_t length) const {
    std::u16string result(length, u'\0');
    std::transform(text, text + length, result.begin(),
                   [](char byte) { return static_cast<unsigned char>(byte); });
    return result;
}

std::string to_string(const std::u16string& text) {
    std::string result;
    // Surrogates are converted in pairs or one by one, because the conversion of a high surrogate
    // consumes the next code unit even if it is not a low surrogate.
    for (const char16_t* unit = text.data(); unit != text.data() + text.size();) {
        const bool isPair = (unit[0] & 0xFC00) == 0xD800 && (unit[1] & 0xFC00) == 0xDC00;
        const char16_t* const end = unit + (isPair ? 2 : 1);
        result += convert_string<char>(unit, end);
        unit = end;
    }
    return result;
}

} // namespace fl::i18n

namespace fl::filesystem {

namespace {

std::u16string decoded(const std::string& bytes) {
    return i18n::convert_string<char16_t>(bytes.data(), bytes.data() + bytes.size());
}

std::u16string_view nameOf(std::u16string_view file) {
    return file.substr(file.rfind(PATHNAME_SEPARATOR) + 1);
}

std::u16string_view withoutTrailingSeparators(std::u16string_view file) {
    return file.substr(0, file.find_last_not_of(PATHNAME_SEPARATOR) + 1);
}

} // namespace

path make_native_form(const path& file, bool) {
    return file;
}

std::u16string extract_stem(const path& name) {
    const std::u16string_view text = nameOf(name.string());
    return std::u16string(text.substr(0, text.rfind(u'.')));
}

std::u16string extract_extension(const path& name) {
    const std::u16string_view text = nameOf(name.string());
    const std::size_t dot = text.rfind(u'.');
    return dot == text.npos ? u"" : std::u16string(text.substr(dot + 1));
}

path remove_filename(const path& file) {
    const std::u16string_view text = withoutTrailingSeparators(file.string());
    const std::size_t nameLength = nameOf(text).size();
    return std::u16string(withoutTrailingSeparators(text.substr(0, text.size() - nameLength)));
}

native_access_form make_native_access_form_with_cleanup_i18n(const path& file) {
    const std::string bytes = i18n::to_string(file.string());
    if (bytes.find('\0') != bytes.npos || decoded(bytes) != file.string())
        throw path_error("no file has this path");
    return native_access_form(bytes);
}

directory_iterator::directory_iterator(const path& folder, std::u16string_view) : folder_(folder) {
    std::error_code error;
    const native_access_form native = make_native_access_form_with_cleanup_i18n(folder);
    entry_ = std::filesystem::directory_iterator(native.bytes(), error);
}

path directory_iterator::filename() const {
    return decoded(entry_->path().filename().native());
}

basic_ifstream<char>::basic_ifstream(const native_access_form& file, std::ios_base::openmode mode,
                                     share_mode) {
    std::error_code error;
    if (std::filesystem::is_regular_file(file.bytes(), error))
        open(file.bytes(), mode);
}

std::u16string get_install_path() {
    return platform::defaultHostServices()->installPath();
}

} // namespace fl::filesystem
