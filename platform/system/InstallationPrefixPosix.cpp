#include "platform/system/InstallationPrefix.hpp"
#include "platform/system/NativePath.hpp"

#include <dlfcn.h>

namespace platform {

namespace {

// The loader identifies this library by the address of any of its objects.
constexpr char kAnchor = 0;

// Returns the folder of this library; empty if the loader does not report it.
std::filesystem::path ownFolder() {
    Dl_info info = {};
    if (::dladdr(&kAnchor, &info) == 0 || info.dli_fname == nullptr)
        return {};
    std::error_code unresolved;
    return std::filesystem::canonical(info.dli_fname, unresolved).parent_path();
}

} // namespace

std::u16string installationPrefix() {
    const std::filesystem::path builtFor(DOCPARSER_INSTALL_PREFIX);
    const auto moved = rootOfInstalledTree(ownFolder(), DOCPARSER_INSTALL_LIBDIR);
    return fromNativePath(moved.value_or(builtFor).native());
}

} // namespace platform
