#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace fl::filesystem {

inline constexpr char16_t PATHNAME_SEPARATOR = u'/';

/// A path as a string of UTF-16 code units; the library needs nothing more.
template <class CharT>
class basic_path {
public:
    using string_type = std::basic_string<CharT>;

    basic_path(string_type text) : text_(std::move(text)) {}

    const string_type& string() const noexcept { return text_; }
    bool empty() const noexcept { return text_.empty(); }

    /// Joins the path and the name with one separator.
    basic_path operator/(const basic_path& name) const {
        const bool isSeparated = !text_.empty() && text_.back() == PATHNAME_SEPARATOR;
        return isSeparated ? text_ + name.text_ : text_ + PATHNAME_SEPARATOR + name.text_;
    }

private:
    string_type text_;
};

using path = basic_path<char16_t>;

/// A path in the form of system calls, which alone accept it.
class native_access_form {
public:
    explicit native_access_form(std::string bytes) : bytes_(std::move(bytes)) {}

    const std::string& bytes() const noexcept { return bytes_; }

private:
    std::string bytes_;
};

/// The path cannot name a file.
class path_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

path make_native_form(const path& file, bool isName = false);
std::u16string extract_stem(const path& name);
std::u16string extract_extension(const path& name);
path remove_filename(const path& file);

/// \throws path_error  the path contains NUL or an unpaired surrogate
native_access_form make_native_access_form_with_cleanup_i18n(const path& file);

} // namespace fl::filesystem
