#include "platform/system/InstallationPrefix.hpp"
#include "platform/system/NativePath.hpp"

#include <windows.h>

#include <string>

namespace platform {

namespace {

// The loader identifies this library by the address of any of its objects.
constexpr char kAnchor = 0;

// Returns the folder of this library; empty if the loader does not report it.
std::filesystem::path ownFolder() {
    HMODULE self = nullptr;
    if (!::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                  GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              reinterpret_cast<const wchar_t*>(&kAnchor), &self))
        return {};
    std::wstring file(MAX_PATH, L'\0');
    // If a path does not fit, it is truncated and the reported length is that of the buffer.
    for (;;) {
        const DWORD length =
            ::GetModuleFileNameW(self, file.data(), static_cast<DWORD>(file.size()));
        if (length < file.size()) {
            file.resize(length);
            return std::filesystem::path(file).parent_path();
        }
        file.resize(2 * file.size());
    }
}

} // namespace

std::u16string installationPrefix() {
    const std::filesystem::path builtFor(DOCPARSER_INSTALL_PREFIX);
    const auto moved = rootOfInstalledTree(ownFolder(), DOCPARSER_INSTALL_LIBDIR);
    return fromNativePath(moved.value_or(builtFor).native());
}

} // namespace platform
