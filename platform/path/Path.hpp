#pragma once

#include "platform/Export.hpp"
#include "platform/system/NativePath.hpp"

#include <string>
#include <string_view>
#include <utility>

namespace fl::filesystem {

/// Separates the components of a path on this system: '/', or '\' on Windows.
inline constexpr char16_t PATHNAME_SEPARATOR = platform::kPathSeparator;

/// A path as a string: it is never normalised, and the disk is never accessed.
template <class CharT>
class basic_path;

/// A path in UTF-16, the only specialisation. Strings convert to paths implicitly.
template <>
class DOCPARSER_PLATFORM_EXPORT basic_path<char16_t> {
public:
    /// The empty path.
    basic_path() = default;
    /// The path with this string, unchanged.
    basic_path(std::u16string text) : text_(std::move(text)) {}
    /// The path with this NUL-terminated string, unchanged.
    basic_path(const char16_t* text) : text_(text) {}

    /// Returns the path as a string.
    const std::u16string& string() const noexcept { return text_; }
    /// Returns whether the string is empty.
    bool empty() const noexcept { return text_.empty(); }

    /// Returns what follows the last separator; the whole path if it has none.
    basic_path filename() const;

    /// Returns the path with a component appended, after one separator unless the path ends with
    /// one. A component that looks absolute does not replace the path.
    basic_path operator/(std::u16string_view component) const;

private:
    std::u16string text_;
};

/// The usual name of a path.
using path = basic_path<char16_t>;

/// Returns what follows the last dot of the file name: "json" for "a/P.b.json" and for ".json";
/// empty for "P", "P.", "." and "..".
DOCPARSER_PLATFORM_EXPORT std::u16string extract_extension(const path& file);

/// Returns the file name without its last dot and what follows: "P.b" for "a/P.b.json", "P" for
/// "P", the empty string for ".json". "." and ".." are returned whole.
DOCPARSER_PLATFORM_EXPORT std::u16string extract_stem(const path& file);

/// Returns the path without its last component and the separators around it: "a/b" for "a/b/c" and
/// "a/b/c/". A path of one component or none becomes empty, and so does "/a".
DOCPARSER_PLATFORM_EXPORT path remove_filename(const path& file);

/// Returns the path with the separators of this system: on Windows each '/' becomes '\'.
/// \param isName  true if the path is a single name; the result is the same
DOCPARSER_PLATFORM_EXPORT path make_native_form(path file, bool isName = false);

/// Returns the path in the form that the system's calls take, as platform::toNativePath() does.
/// \throws std::system_error  the path contains NUL (errc::invalid_argument), or an unpaired
///                            surrogate where paths are bytes (errc::illegal_byte_sequence)
DOCPARSER_PLATFORM_EXPORT platform::NativePath
make_native_access_form_with_cleanup_i18n(const path& file);

} // namespace fl::filesystem
