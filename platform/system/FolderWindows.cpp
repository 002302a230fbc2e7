#include "platform/system/Folder.hpp"
#include "platform/system/WindowsPath.hpp"

#include <windows.h>

#include <new>
#include <string_view>
#include <system_error>
#include <utility>

namespace platform {

namespace {

// Windows returns the first name when the search is opened.
struct Search {
    HANDLE handle = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW entry = {};
    bool hasEntry = false;
};

} // namespace

void Folder::Close::operator()(void* handle) const noexcept {
    Search* const search = static_cast<Search*>(handle);
    if (search->handle != INVALID_HANDLE_VALUE)
        ::FindClose(search->handle);
    delete search;
}

std::optional<Folder> Folder::open(const NativePath& folder) noexcept try {
    // An empty path with the pattern appended would mean the root of the current drive.
    if (folder.empty() || isDeviceOrStream(folder))
        return std::nullopt;
    auto* const search = new Search;
    Folder result(search);
    const bool endsWithSeparator = folder.back() == L'\\' || folder.back() == L'/';
    const NativePath pattern = folder + (endsWithSeparator ? L"*" : L"\\*");
    search->handle = ::FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &search->entry,
                                        FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    search->hasEntry = search->handle != INVALID_HANDLE_VALUE;
    // Only the root of a drive may lack even the entries "." and "..".
    if (!search->hasEntry && ::GetLastError() != ERROR_FILE_NOT_FOUND)
        return std::nullopt;
    return result;
} catch (const std::bad_alloc&) {
    return std::nullopt;
}

std::optional<NativePath> Folder::next() {
    Search& search = *static_cast<Search*>(handle_.get());
    if (search.handle == INVALID_HANDLE_VALUE)
        return std::nullopt;
    while (std::exchange(search.hasEntry, false) || ::FindNextFileW(search.handle, &search.entry)) {
        const std::wstring_view name = search.entry.cFileName;
        if (name != L"." && name != L"..")
            return NativePath(name);
    }
    if (const DWORD error = ::GetLastError(); error != ERROR_NO_MORE_FILES)
        throw std::system_error(static_cast<int>(error), std::system_category(),
                                "a folder could not be read");
    return std::nullopt;
}

} // namespace platform
