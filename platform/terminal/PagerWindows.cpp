#include "platform/terminal/Pager.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace platform {

namespace {

constexpr int kCommandNotRun = 1;      // a shell's status if it cannot start the program
constexpr int kCommandNotFound = 9009; // a shell's status if there is no such program

std::wstring toWide(std::string_view text) {
    const std::u16string units = toUtf16(text);
    return {units.begin(), units.end()};
}

BOOL WINAPI takeInterrupt(DWORD event) {
    return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
}

// Keeps keys such as Ctrl+C from ending this process during the object's lifetime; the pager still
// receives them.
class InterruptsTaken {
public:
    InterruptsTaken() { ::SetConsoleCtrlHandler(takeInterrupt, TRUE); }
    ~InterruptsTaken() { ::SetConsoleCtrlHandler(takeInterrupt, FALSE); }
    InterruptsTaken(const InterruptsTaken&) = delete;
    InterruptsTaken& operator=(const InterruptsTaken&) = delete;
};

// Sets LESS, unless it is set already, for the programs started during the object's lifetime.
class LessOptions {
public:
    LessOptions() : isOurs_(!::_wgetenv(L"LESS")) {
        if (isOurs_)
            ::_wputenv(L"LESS=FRX");
    }
    ~LessOptions() {
        if (isOurs_)
            ::_wputenv(L"LESS=");
    }
    LessOptions(const LessOptions&) = delete;
    LessOptions& operator=(const LessOptions&) = delete;

private:
    bool isOurs_;
};

} // namespace

bool showThroughPager(const std::string& command, std::string_view text) {
    const InterruptsTaken interruptsTaken;
    const LessOptions lessOptions;
    std::FILE* const pager = ::_wpopen(toWide(command).c_str(), L"wb");
    if (!pager)
        return false;
    // A pager that ends early leaves the rest of the text unread.
    std::fwrite(text.data(), 1, text.size(), pager);
    const int status = ::_pclose(pager);
    return status != kCommandNotRun && status != kCommandNotFound;
}

bool isProgramInstalled(const std::string& name) {
    constexpr std::array<const wchar_t*, 4> extensions = {L".com", L".exe", L".bat", L".cmd"};
    const wchar_t* const folders = ::_wgetenv(L"PATH");
    const std::wstring program = toWide(name);
    return folders && std::ranges::any_of(extensions, [&](const wchar_t* extension) {
               return ::SearchPathW(folders, program.c_str(), extension, 0, nullptr, nullptr) != 0;
           });
}

} // namespace platform
