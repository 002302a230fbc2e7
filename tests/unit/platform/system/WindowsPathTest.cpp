#include "platform/system/WindowsPath.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace platform {
namespace {

TEST(WindowsPathTest, DevicesPipesAndStreamsAreNotFiles) {
    for (const wchar_t* path : {
             L"CON",
             L"con",
             L"NUL",
             L"nul.json",
             L"C:\\docs\\Aux.json",
             L"C:\\docs\\PRN .txt",
             L"C:\\NUL\\P.json",
             L"COM1",
             L"lpt9.json",
             L"com\u00b2",
             L"CONIN$",
             L"conout$",
             L"\\\\.\\PhysicalDrive0",
             L"\\\\.\\C:\\docs\\P.json",
             L"\\\\?\\GLOBALROOT\\Device\\Null",
             L"\\\\server\\pipe\\P.json",
             L"//server/PIPE/P.json",
             L"\\\\?\\UNC\\server\\mailslot\\P.json",
             L"C:\\docs\\P.json:notes",
             L"P.json::$DATA",
         })
        EXPECT_TRUE(isDeviceOrStream(path)) << std::filesystem::path(path);
    EXPECT_TRUE(isDeviceOrStream(std::wstring_view(L"P.json\0.bak", 11)));
}

TEST(WindowsPathTest, FilesMayHaveNamesThatResembleDevices) {
    for (const wchar_t* path : {
             L"",
             L"P.json",
             L"console.json",
             L"C:\\docs\\nulls\\P.json",
             L"C:P.json",
             L"C:/docs/com.json",
             L"com10.json",
             L"comx.json",
             L"docs\\pipe\\P.json",
             L"\\\\server\\share\\P.json",
             L"\\\\?\\C:\\docs\\P.json",
             L"\\\\?\\UNC\\server\\share\\P.json",
             L".nul",
         })
        EXPECT_FALSE(isDeviceOrStream(path)) << std::filesystem::path(path);
}

TEST(WindowsPathTest, LongPathsGetAPrefix) {
    const std::wstring name(200, L'a');
    const std::wstring below = name + L'\\' + name;
    EXPECT_EQ(withLongPathPrefix(L"C:\\" + below), L"\\\\?\\C:\\" + below);
    EXPECT_EQ(withLongPathPrefix(L"C:\\x\\..\\.\\" + below), L"\\\\?\\C:\\" + below);
    EXPECT_EQ(withLongPathPrefix(L"\\\\server\\share\\" + below),
              L"\\\\?\\UNC\\server\\share\\" + below);
    EXPECT_EQ(withLongPathPrefix(L"\\\\?\\C:\\" + below), L"\\\\?\\C:\\" + below);
    EXPECT_EQ(withLongPathPrefix(below),
              L"\\\\?\\" + (std::filesystem::current_path() / below).native());
}

TEST(WindowsPathTest, ShortPathsAreUnchanged) {
    for (const std::wstring path : {L"", L"P.json", L"..\\P.json", L"C:\\docs\\..\\P.json",
                                    L"\\\\server\\share\\P.json", L"CON"})
        EXPECT_EQ(withLongPathPrefix(path), path);
}

} // namespace
} // namespace platform
