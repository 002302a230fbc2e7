#include "docparser/discovery/FileNames.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using reference::docparser::isValidFilename;

TEST(FileNames, OnlyTheExtensionsJsonAndZipToTheLetterMakeAProductFile) {
    const std::vector<std::pair<const char16_t*, bool>> names = {{u"P.json", true},
                                                                 {u"P_ja.json", true},
                                                                 {u"P.zip", true},
                                                                 {u"P.JSON", false},
                                                                 {u"P.Json", false},
                                                                 {u"P.Zip", false},
                                                                 {u"P.ZIP", false},
                                                                 {u"P.json.bak", false},
                                                                 {u"P", false},
                                                                 {u".", false},
                                                                 {u"..", false},
                                                                 {u"", false},
                                                                 {u"json", false},
                                                                 {u"zip", false},
                                                                 {u"P.", false},
                                                                 {u"P.json ", false},
                                                                 {u"P. json", false},
                                                                 {u"P.jsonx", false},
                                                                 {u"P.xjson", false},
                                                                 {u"P.zi", false},
                                                                 {u"P.j\u017Fon", false},
                                                                 {u"folder/P.zip", true},
                                                                 {u"folder.zip/P", false},
                                                                 {u"folder.json/P.bak", false},
                                                                 {u"P..json", true},
                                                                 {u"archive.tar.zip", true},
                                                                 {u"\u00E9\u65E5.json", true}};
    for (const auto& [name, isValid] : names)
        EXPECT_EQ(isValidFilename(name), isValid)
            << std::filesystem::path(std::u16string(name)).string();
}

TEST(FileNames, ANameOfADotAndJsonAloneIsValidBecauseThePathLibraryCallsJsonItsExtension) {
    EXPECT_EQ(fl::filesystem::extract_extension(u".json"), u"json");
    EXPECT_TRUE(isValidFilename(u".json"));
}

TEST(FileNames, AFolderOfAValidNameIsValidSinceTheDiskIsNotAsked) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path() / "x.json");
    EXPECT_TRUE(isValidFilename(folder.u16() + u"/x.json"));
    EXPECT_TRUE(isValidFilename(folder.u16() + u"/missing.json"));
}

} // namespace
} // namespace docparser_tests
