#include "platform/i18n/Converter.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/refdoc/ToolProcess.hpp"

#include <windows.h>

#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

namespace refdoc_tests {

namespace {

[[noreturn]] void fail(const char* what) {
    throw std::system_error(static_cast<int>(::GetLastError()), std::system_category(), what);
}

std::wstring toWide(std::string_view text) {
    const std::u16string units = fl::i18n::to_ustring(text);
    return {units.begin(), units.end()};
}

std::string toUtf8(std::wstring_view text) {
    return fl::i18n::to_string(std::u16string(text.begin(), text.end()));
}

class Handle {
public:
    explicit Handle(HANDLE handle) : handle_(handle) {
        if (handle_ == INVALID_HANDLE_VALUE)
            fail("cannot open a file");
    }
    ~Handle() { ::CloseHandle(handle_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

// Opens a file that the program inherits.
HANDLE inheritable(const std::filesystem::path& file) {
    SECURITY_ATTRIBUTES security = {sizeof security, nullptr, TRUE};
    return ::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &security,
                         CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
}

std::string bytesOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// Quotes an argument for the run-time library of the program, which splits the command line.
std::wstring inQuotes(std::wstring_view argument) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t unit : argument) {
        if (unit == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = unit == L'\\' ? backslashes + 1 : 0;
        text += unit;
    }
    return text.append(backslashes, L'\\') + L'"';
}

std::wstring commandLine(const std::vector<std::string>& arguments) {
    std::wstring line = inQuotes(toWide(REFDOC_PROGRAM));
    for (const std::string& argument : arguments)
        line += L' ' + inQuotes(toWide(argument));
    return line;
}

// Returns the variables as a block of NUL-terminated strings.
std::wstring environmentOf(const Surroundings& surroundings) {
    std::wstring block;
    wchar_t* const own = ::GetEnvironmentStringsW();
    for (const wchar_t* variable = own; *variable; variable += std::wcslen(variable) + 1) {
        const std::wstring_view text = variable;
        if (!affectsProgram(toUtf8(text.substr(0, text.find(L'=')))))
            block.append(text).push_back(L'\0');
    }
    ::FreeEnvironmentStringsW(own);
    for (const auto& [name, value] : surroundings.variables)
        block.append(toWide(name + '=' + value)).push_back(L'\0');
    return block;
}

int runToEnd(const std::vector<std::string>& arguments, const Surroundings& surroundings,
             const Handle& out, const Handle& err) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = out.get();
    startup.hStdError = err.get();
    std::wstring line = commandLine(arguments);
    std::wstring environment = environmentOf(surroundings);
    const std::wstring folder = toWide(currentFolder(surroundings));
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, /*bInheritHandles=*/TRUE,
                          CREATE_UNICODE_ENVIRONMENT, environment.data(), folder.c_str(), &startup,
                          &process))
        fail("cannot start the program");
    const Handle processHandle(process.hProcess);
    const Handle threadHandle(process.hThread);
    DWORD status = 0;
    if (::WaitForSingleObject(process.hProcess, INFINITE) != WAIT_OBJECT_0 ||
        !::GetExitCodeProcess(process.hProcess, &status))
        fail("cannot wait for the program");
    return static_cast<int>(status);
}

} // namespace

Outcome runProgram(const std::vector<std::string>& arguments, const Surroundings& surroundings) {
    const docparser_tests::TemporaryFolder folder;
    const std::filesystem::path outFile = surroundings.output.empty()
                                              ? folder.path() / "out"
                                              : std::filesystem::path(surroundings.output);
    Outcome outcome;
    {
        const Handle out(inheritable(outFile));
        const Handle err(inheritable(folder.path() / "err"));
        outcome.status = runToEnd(arguments, surroundings, out, err);
    }
    if (surroundings.output.empty())
        outcome.out = bytesOf(outFile);
    outcome.err = bytesOf(folder.path() / "err");
    return outcome;
}

} // namespace refdoc_tests
