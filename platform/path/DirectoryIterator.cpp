#include "platform/path/DirectoryIterator.hpp"

#include <stdexcept>
#include <system_error>

namespace fl::filesystem {

directory_iterator::directory_iterator(const path& folder, std::u16string_view pattern)
    : folder_(folder) {
    if (pattern != u"*")
        throw std::invalid_argument("a directory iterator lists all names or none");
    std::error_code unreadable; // leaves the iterator at its end
    entry_ = std::filesystem::directory_iterator(make_native_access_form_with_cleanup_i18n(folder),
                                                 unreadable);
}

void directory_iterator::increment() {
    ++entry_;
}

path directory_iterator::filename() const {
    return from_native_access_form(entry_->path().filename());
}

path directory_iterator::full_pathname() const {
    return folder_ / filename().string();
}

} // namespace fl::filesystem
