#include "docparser/DocParserException.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/system/SystemTest.hpp"

#include <string>

namespace docparser_tests {
namespace {

// Product names are used in file names unchanged. findResources() fails the test if the exception
// has a different name.
class ProductNameTest : public SystemTest {};

Resources resourcesOf(const std::u16string& product) {
    return {{u"orchard", section(u"orchard", product, {})}};
}

const std::string& text() {
    static const std::string orchard = resourceText("orchard", {});
    return orchard;
}

TEST_F(ProductNameTest, SeparatorsLeadToAnotherFolder) {
    addApi("sub/Orchard.json", text());
    folder.write("root/docCatalog/other/Orchard.json", text());
    for (const std::u16string product :
         {u"sub/Orchard", u"./sub//Orchard", u"../other/Orchard", u"sub/../../other/Orchard"})
        EXPECT_EQ(findResources(product), resourcesOf(product));
    EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
}

TEST_F(ProductNameTest, AbsoluteNameDoesNotReplaceTheFolder) {
    folder.write("outside/Orchard.json", text());
    const std::u16string product = folder.u16() + u"/outside/Orchard";
    EXPECT_EQ(findResources(product), std::nullopt);

    addApi("abs/Orchard.json", text());
    EXPECT_EQ(findResources(u"/abs/Orchard"), resourcesOf(u"/abs/Orchard"));
}

TEST_F(ProductNameTest, NameIsNotCutAtNul) {
    addApi("Orchard.json", text());
    addApi("Orchard", text());
    for (const std::u16string& product :
         {std::u16string(u"Orchard\0", 8), std::u16string(u"Orchard.json\0", 13),
          std::u16string(u"\0Orchard", 8), std::u16string(1, u'\0')}) {
        EXPECT_EQ(findResources(product), std::nullopt);
        setLanguage(u"de");
        EXPECT_EQ(findResources(product), std::nullopt);
        host->language = u"en";
    }
}

POSIX_TEST_F(ProductNameTest, UnpairedSurrogatesNameNoFile) {
    addApi("\xEF\xBF\xBD.json", text()); // the name after a lossy conversion
    addApi("?.json", text());
    addApi("\xED\xA0\x80.json", text()); // the name after a conversion without validation
    const std::u16string lonely[] = {{char16_t(0xD800)},
                                     {char16_t(0xDBFF)},
                                     {char16_t(0xDC00)},
                                     {char16_t(0xDC00), char16_t(0xD800)},
                                     {u'a', char16_t(0xD800), u'b'}};
    for (const std::u16string& product : lonely)
        EXPECT_EQ(findResources(product), std::nullopt);
}

TEST_F(ProductNameTest, LanguageThatCannotNameAFileLosesOnlyTheTranslation) {
    addApi("Orchard.json", text());
    for (const std::u16string& language : {std::u16string(1, u'\0'), std::u16string(u"\xD800")}) {
        host->language = language;
        EXPECT_EQ(findResources(u"Orchard"), resourcesOf(u"Orchard"));
    }
}

TEST_F(ProductNameTest, ThrowsForNamesThatAreTooLong) {
    EXPECT_EQ(findResources(std::u16string(10'000, u'x')), std::nullopt);
    EXPECT_EQ(findResources(std::u16string(1'000'000, u'\u4e00')), std::nullopt);
}

TEST_F(ProductNameTest, LongRelativeNameIsFound) {
    addApi("Orchard.json", text());
    std::u16string product;
    while (product.size() < 3000)
        product += u"./";
    product += u"Orchard";
    EXPECT_EQ(findResources(product), resourcesOf(product));
}

TEST_F(ProductNameTest, EmptyNameReadsFileNamedByItsExtension) {
    EXPECT_EQ(findResources(u""), std::nullopt);
    addApi(".json", text());
    EXPECT_EQ(findResources(u""), resourcesOf(u""));
    setLanguage(u"de");
    addApi("_de.json", resourceText("deutsch", {}));
    EXPECT_EQ(findResources(u"")->count(u"deutsch"), 1U);
}

POSIX_TEST_F(ProductNameTest, NamesMayHaveControlCharacters) {
    for (const std::string name : {"two\nlines", "\x1B[31mred", "tab\t", "del\x7F", "\r", "*?\\"}) {
        const std::u16string product(name.begin(), name.end());
        EXPECT_EQ(findResources(product), std::nullopt);
        addApi(name + ".json", text());
        EXPECT_EQ(findResources(product), resourcesOf(product));
    }
}

TEST_F(ProductNameTest, FileNamesAreUtf8) {
    addApi("Obst\xC3\xA4\xF0\x9F\x8D\x8E.json", text());
    EXPECT_EQ(findResources(u"Obst\u00e4\U0001F34E"), resourcesOf(u"Obst\u00e4\U0001F34E"));
    EXPECT_EQ(findResources(u"Obsta\u0308\U0001F34E"), std::nullopt);
}

TEST_F(ProductNameTest, LogsEveryLineForAnyName) {
    const LogCapture log(528);
    for (const std::u16string& product :
         {std::u16string(u"a\0b", 3), std::u16string(u"\xD800"), std::u16string(10'000, u'x')})
        EXPECT_EQ(findResources(product), std::nullopt);
    EXPECT_EQ(log.messages()[2], "DocParserException thrown in getResourceFile for product: " +
                                     std::string("a\0b", 3));
}

} // namespace
} // namespace docparser_tests
