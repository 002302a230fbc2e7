#include "platform/InstallationPrefix.hpp"
#include "platform/path/Path.hpp"

#include <dlfcn.h>

namespace platform {

namespace {

// Any object of this library tells the loader which library is meant.
constexpr char kAnchor = 0;

std::filesystem::path ownLibrary() {
    Dl_info info = {};
    if (::dladdr(&kAnchor, &info) == 0 || info.dli_fname == nullptr)
        return {};
    std::error_code unresolved;
    return std::filesystem::canonical(info.dli_fname, unresolved);
}

} // namespace

std::u16string installationPrefix() {
    const std::filesystem::path builtFor(DOCPARSER_INSTALL_PREFIX);
    const std::filesystem::path libraryFolder = ownLibrary().parent_path();

    // The prefix is what is left of the library's folder without its place in an installed tree.
    std::filesystem::path prefix = libraryFolder;
    std::filesystem::path place = DOCPARSER_INSTALL_LIBDIR;
    for (; !place.empty() && place.filename() == prefix.filename(); place = place.parent_path())
        prefix = prefix.parent_path();
    const bool isInstalled = place.empty() && !prefix.empty();
    return fl::filesystem::from_native_access_form(isInstalled ? prefix : builtFor).string();
}

} // namespace platform
