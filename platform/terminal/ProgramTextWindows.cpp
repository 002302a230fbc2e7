#include "platform/terminal/ProgramText.hpp"
#include "platform/unicode/Transcoding.hpp"

#include <windows.h>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace platform {

namespace {

std::string asUtf8(std::wstring_view text) {
    return toUtf8(std::u16string(text.begin(), text.end()));
}

struct FreeLocal {
    void operator()(wchar_t** memory) const noexcept { ::LocalFree(memory); }
};

// Makes a console obey escape sequences. Returns its previous mode; 0 if there is no console.
unsigned long enableEscapeSequences(DWORD stream) noexcept {
    const HANDLE console = ::GetStdHandle(stream);
    DWORD mode = 0;
    if (!::GetConsoleMode(console, &mode))
        return 0;
    ::SetConsoleMode(console, mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    return mode;
}

void restoreMode(DWORD stream, unsigned long mode) noexcept {
    if (mode != 0)
        ::SetConsoleMode(::GetStdHandle(stream), mode);
}

} // namespace

std::vector<std::string> argumentsInUtf8(int, char*[]) {
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> words(
        ::CommandLineToArgvW(::GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int word = 1; words && word < count; ++word)
        arguments.push_back(asUtf8(words.get()[word]));
    return arguments;
}

std::optional<std::string> environmentVariable(const std::string& name) {
    const wchar_t* const value = ::_wgetenv(std::wstring(name.begin(), name.end()).c_str());
    return value ? std::optional<std::string>(asUtf8(value)) : std::nullopt;
}

Utf8Output::Utf8Output() noexcept
    : codePage_(::GetConsoleOutputCP()),
      outputMode_(enableEscapeSequences(STD_OUTPUT_HANDLE)),
      errorMode_(enableEscapeSequences(STD_ERROR_HANDLE)) {
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
    if (codePage_ != 0)
        ::SetConsoleOutputCP(CP_UTF8);
}

Utf8Output::~Utf8Output() {
    // The bytes still in the streams' buffers must be shown in the code page of this object.
    std::fflush(stdout);
    std::fflush(stderr);
    restoreMode(STD_OUTPUT_HANDLE, outputMode_);
    restoreMode(STD_ERROR_HANDLE, errorMode_);
    if (codePage_ != 0)
        ::SetConsoleOutputCP(codePage_);
}

} // namespace platform
