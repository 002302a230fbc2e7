#include "platform/path/Path.hpp"

#include <algorithm>

namespace fl::filesystem {

namespace {

using platform::isPathSeparator;

// Returns the position after the last separator.
std::size_t nameStart(std::u16string_view text) noexcept {
    const auto separator = std::find_if(text.rbegin(), text.rend(), isPathSeparator);
    return static_cast<std::size_t>(text.rend() - separator);
}

std::u16string_view withoutTrailingSeparators(std::u16string_view text) noexcept {
    while (!text.empty() && isPathSeparator(text.back()))
        text.remove_suffix(1);
    return text;
}

std::u16string_view nameOf(const path& file) noexcept {
    return std::u16string_view(file.string()).substr(nameStart(file.string()));
}

bool isDots(std::u16string_view name) noexcept {
    return name == u"." || name == u"..";
}

} // namespace

path path::filename() const {
    return text_.substr(nameStart(text_));
}

path path::operator/(std::u16string_view component) const {
    return platform::joinPath(text_, component);
}

std::u16string extract_extension(const path& file) {
    const std::u16string_view name = nameOf(file);
    const std::size_t dot = name.rfind(u'.');
    return std::u16string(dot == name.npos ? std::u16string_view() : name.substr(dot + 1));
}

std::u16string extract_stem(const path& file) {
    const std::u16string_view name = nameOf(file);
    return std::u16string(isDots(name) ? name : name.substr(0, name.rfind(u'.')));
}

path remove_filename(const path& file) {
    std::u16string_view text = withoutTrailingSeparators(file.string());
    text = withoutTrailingSeparators(text.substr(0, nameStart(text)));
    return std::u16string(text);
}

path make_native_form(path file, bool) {
    if constexpr (PATHNAME_SEPARATOR == u'/')
        return file;
    std::u16string text = file.string();
    std::ranges::replace(text, u'/', PATHNAME_SEPARATOR);
    return text;
}

platform::NativePath make_native_access_form_with_cleanup_i18n(const path& file) {
    return platform::toNativePath(file.string());
}

} // namespace fl::filesystem
