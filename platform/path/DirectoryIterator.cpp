#include "platform/path/DirectoryIterator.hpp"

#include <stdexcept>

namespace fl::filesystem {

directory_iterator::directory_iterator(const path& folder, std::u16string_view pattern)
    : folder_(folder) {
    if (pattern != u"*")
        throw std::invalid_argument("a directory iterator lists all names or none");
    entries_ = platform::Folder::open(make_native_access_form_with_cleanup_i18n(folder));
    if (entries_)
        increment();
}

void directory_iterator::increment() {
    name_.reset(); // the iteration ends if next() throws
    if (const std::optional<platform::NativePath> name = entries_->next())
        name_ = platform::fromNativePath(*name);
}

path directory_iterator::full_pathname() const {
    return folder_ / name_->string();
}

} // namespace fl::filesystem
