#include "platform/i18n/Converter.hpp"
#include "tests/system/SystemTest.hpp"

#include <map>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Product and language names that no file has. findResources() fails the test if the exception
// carries a name other than the requested one.
class HostileNameTest : public SystemTest {
protected:
    static constexpr std::uint32_t kMasks[] = {0, 16, 512, 0x7fff};

    static std::vector<std::u16string> names() {
        return {u"",
                std::u16string(1, u'\0'),
                std::u16string(u"Orchard\0.json", 13),
                {char16_t(0xD800)},
                {char16_t(0xDFFF), u'x', char16_t(0xDBFF)},
                u"two\nlines\r\n",
                u"\u001B[2J\u0007",
                u"\u202Egpj",
                u"\uFEFF\uFFFE\uFFFF",
                u"%s%n%1%",
                u"../../../../../../../../etc/passwd",
                u"/dev/zero",
                u"/proc/self/mem",
                u"CON",
                u"a:b",
                u"C:\\Orchard",
                u"\\\\server\\share",
                u"//server/share",
                std::u16string(256, u'x'),
                std::u16string(5000, u'/'),
                std::u16string(70'000, u'\u6A39')};
    }
};

TEST_F(HostileNameTest, ExceptionCarriesEachNameWithEveryMask) {
    for (const std::uint32_t mask : kMasks) {
        const LogCapture log(mask);
        for (const std::u16string& name : names())
            EXPECT_EQ(findResources(name), std::nullopt) << fl::i18n::to_string(name);
        // One record for each of the two folders, and one for the exception.
        const std::size_t lines = (mask & 16 ? 2U : 0U) + (mask & 512 ? 1U : 0U);
        EXPECT_EQ(log.lines().size(), lines * names().size()) << mask;
    }
}

TEST_F(HostileNameTest, NameIsLoggedUnchangedInOneRecord) {
    const LogCapture log(512);
    for (const std::u16string& name : names()) {
        findResources(name);
        EXPECT_EQ(log.messages().back(),
                  "DocParserException thrown in getResourceFile for product: " +
                      fl::i18n::to_string(name));
    }
    EXPECT_EQ(log.messages().size(), names().size());
}

TEST_F(HostileNameTest, ExceptionCarriesAHundredMegabyteName) {
    std::u16string name;
    name.resize(50'000'000, u'x');
    // Not EXPECT_EQ, which would print the name.
    EXPECT_TRUE(findResources(name) == std::nullopt);
}

TEST_F(HostileNameTest, LongestFileNameIsFoundAndALongerOneIsMissing) {
    constexpr std::size_t kLongestName = 255; // bytes, with the extension
    const std::string longest(kLongestName - std::string(".json").size(), 'x');
    addApi(longest + ".json", resourceText("orchard", {}));
    addLookup(longest + ".json", ResourceText("orchard").str());
    const std::u16string name(longest.begin(), longest.end());
    EXPECT_EQ(findResources(name)->size(), 1U);
    EXPECT_EQ(findResources(name + u"x"), std::nullopt);
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
    // The name of the translation would be even longer.
    setLanguage(u"de");
    EXPECT_EQ(findResources(name)->size(), 1U);
}

TEST_F(HostileNameTest, RootBeyondTheLongestPathHasNoFiles) {
    std::u16string root = folder.u16();
    for (int level = 0; level < 1000; ++level)
        root += u"/../" + folder.u16().substr(folder.u16().rfind(u'/') + 1);
    DocResourceParser::setReferenceRoot(root + u"/root");
    addApi("Orchard.json", resourceText("orchard", {}));
    EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
}

TEST_F(HostileNameTest, UnpairedSurrogateDoesNotNameTheFileOfItsReplacement) {
    const std::string text = resourceText("orchard", {});
    addApi("\xEF\xBF\xBD.json",
           text); // U+FFFD, which also replaces unpaired surrogates in messages
    EXPECT_EQ(findResources({char16_t(0xD800)}), std::nullopt);
    EXPECT_EQ(findResources({char16_t(0xD801)}), std::nullopt);
    EXPECT_NE(findResources(u"\uFFFD"), std::nullopt);
}

TEST_F(HostileNameTest, HostileNamesAreNotInstalledProducts) {
    host->install({"Orchard"});
    host->packages = {u"Kit"};
    for (const std::u16string& name : names())
        EXPECT_FALSE(DocResourceParser::isProductInstalled(name)) << fl::i18n::to_string(name);
    EXPECT_TRUE(DocResourceParser::isProductInstalled(u"Orchard"));
}

TEST_F(HostileNameTest, FolderWithAHostileNameHasNoProducts) {
    for (const std::u16string& name : {std::u16string(u"/tmp\0", 5), std::u16string(5000, u'x'),
                                       std::u16string(1, char16_t(0xD800))}) {
        const auto products = DocResourceParser::getAllProducts(name, {u"_de"}, u"_de");
        EXPECT_TRUE(products.jsonProducts.empty());
        EXPECT_TRUE(products.zipProducts.empty());
    }
}

TEST_F(HostileNameTest, InvalidLanguageLosesOnlyTheTranslation) {
    addApi("Orchard.json", resourceText("orchard", {{"graft.html", "Join"}}));
    addLookup("Orchard.json", ResourceText("orchard").str());
    const Resources english = *findResources(u"Orchard");
    for (const std::u16string& language :
         {std::u16string(), std::u16string(u"../x"), std::u16string(1, u'\0'),
          std::u16string(1 << 20, u'x'), std::u16string(1, char16_t(0xDC00))}) {
        setLanguage(language);
        EXPECT_EQ(findResources(u"Orchard"), english);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
    }
}

} // namespace
} // namespace docparser_tests
