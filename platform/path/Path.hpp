#pragma once

#include "platform/Export.hpp"
#include "platform/system/NativePath.hpp"

#include <string>
#include <string_view>
#include <utility>

namespace fl::filesystem {

/// The character that separates the components of a path on this system.
#ifdef _WIN32
inline constexpr char16_t PATHNAME_SEPARATOR = u'\\';
#else
inline constexpr char16_t PATHNAME_SEPARATOR = u'/';
#endif

/// Whether the system takes this character for a separator: '/', and '\' on Windows.
constexpr bool is_separator(char16_t unit) noexcept {
    return unit == u'/' || unit == PATHNAME_SEPARATOR;
}

/// A path as text: nothing is normalised and the disk is never asked.
template <class CharT>
class basic_path;

/// The path in UTF-16, the one kind there is. A value; texts become paths by themselves.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_path<char16_t> {
public:
    basic_path() = default;
    /// The text as a path, as it stands.
    basic_path(std::u16string text) : text_(std::move(text)) {}
    /// The text up to its NUL as a path.
    basic_path(const char16_t* text) : text_(text) {}

    /// The path as text.
    const std::u16string& string() const noexcept { return text_; }
    /// Whether the text is empty.
    bool empty() const noexcept { return text_.empty(); }

    /// What follows the last separator; the whole text when there is none.
    basic_path filename() const;

    /// Appends a component as it stands, after one separator unless the path ends with one. A
    /// component that looks absolute does not replace the path.
    basic_path& operator/=(std::u16string_view component);

    /// The path with a component appended in the same way.
    basic_path operator/(std::u16string_view component) const;

    bool operator==(const basic_path&) const = default;

private:
    std::u16string text_;
};

/// What paths are spelled in.
using path = basic_path<char16_t>;

/// The characters after the last dot of the file name, without the dot: "json" for "a/P.b.json"
/// and for ".json"; empty for "P", "P.", "." and "..".
DOCPARSER_PLATFORM_EXPORT std::u16string extract_extension(const path& file);

/// The file name without its last dot and what follows: "P.b" for "a/P.b.json", the empty text for
/// ".json", "P" for "P". The names "." and ".." are stems as a whole.
DOCPARSER_PLATFORM_EXPORT std::u16string extract_stem(const path& file);

/// The path less its last component and the separators around it: "a/b" for "a/b/c" and "a/b/c/".
/// What has one component or none leaves the empty path, so "/a" does too.
DOCPARSER_PLATFORM_EXPORT path remove_filename(const path& file);

/// The path with the separators of this system: on Windows each '/' becomes '\'.
/// \param isName  true when the text is a single name rather than a path; the form is the same
DOCPARSER_PLATFORM_EXPORT path make_native_form(path file, bool isName = false);

/// The path as the system's calls take it.
/// \throws std::system_error  the text holds NUL (errc::invalid_argument), which would name another
///                            file than it says, or an unpaired surrogate where paths are bytes
///                            (errc::illegal_byte_sequence)
DOCPARSER_PLATFORM_EXPORT platform::NativePath
make_native_access_form_with_cleanup_i18n(const path& file);

/// The UTF-16 text of a path of the system; what is no valid text becomes U+FFFD.
DOCPARSER_PLATFORM_EXPORT path from_native_access_form(const platform::NativePath& file);

} // namespace fl::filesystem
