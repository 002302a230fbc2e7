#include "tools/refdoc/site/ProductReader.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <string>

namespace refdoc::site {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;

class ProductReaderTest : public testing::Test {
protected:
    ProductReaderTest() {
        DocResourceParser::setReferenceRoot((folder_.path() / "help").u16string());
        DocResourceParser::setSupportPackageRoot((folder_.path() / "support").u16string());
    }
    ~ProductReaderTest() override { DocResourceParser::restoreDefaultSettings(); }

    void writeReference(const std::string& file, const char* purpose) const {
        write("help/docCatalog/referenceapi/" + file, purpose);
    }

    void writeSupport(const std::string& file, const char* purpose) const {
        write("support/" + file, purpose);
    }

    // Reads the product in English and German.
    static Product read() {
        LoadAccount failures;
        return readProduct(u"Orchard", {{u"en", ""}, {u"de", "de/"}}, failures);
    }

    static std::u16string purposeIn(const Edition& edition) {
        return edition.content->resources.at(u"orchard").items.at(u"a").front().getRefPurpose();
    }

    docparser_tests::TemporaryFolder folder_;

private:
    void write(const std::string& file, const char* purpose) const {
        folder_.write(file, fmt::format(R"({{"schema": "referenceapi", "schemaVersion": "2.1",
            "productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard",
            "helpLocation": "help/or", "refItems": [{{"href": "a", "refpurpose": "{}"}}]}})",
                                        purpose));
    }
};

TEST_F(ProductReaderTest, LanguagesWithoutATranslationShareTheEnglishEdition) {
    writeReference("Orchard.json", "Graft");
    const Product product = read();
    ASSERT_EQ(product.editions.size(), 2U);
    EXPECT_EQ(product.editions[1].language, u"de");
    EXPECT_EQ(product.editions[0].content, product.editions[1].content);
}

TEST_F(ProductReaderTest, TranslationIsReadWhereTheEnglishFileIsNot) {
    writeSupport("Orchard.json", "Graft");
    writeReference("Orchard_de.json", "Veredeln");
    const Product product = read();
    ASSERT_EQ(product.editions.size(), 2U);
    EXPECT_EQ(purposeIn(product.editions[0]), u"Graft");
    EXPECT_EQ(purposeIn(product.editions[1]), u"Veredeln");
}

TEST_F(ProductReaderTest, TranslationOfABrokenProductIsRead) {
    folder_.write("help/docCatalog/referenceapi/Orchard.json", "{");
    writeReference("Orchard_de.json", "Veredeln");
    const Product product = read();
    ASSERT_EQ(product.editions.size(), 2U);
    EXPECT_TRUE(product.editions[0].isBroken());
    EXPECT_EQ(purposeIn(product.editions[1]), u"Veredeln");
}

} // namespace
} // namespace refdoc::site
