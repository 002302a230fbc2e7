#include "tests/system/SystemTest.hpp"

#include <string>

namespace docparser_tests {
namespace {

using testing::ElementsAre;

// The German file of a product is laid over its English file.
class ResourceOverlayTest : public SystemTest {
protected:
    ResourceOverlayTest() { setLanguage(u"de"); }

    Resources overlaid(const ResourceText& english, const ResourceText& german) const {
        addApi("Orchard.json", english.str());
        addApi("Orchard_de.json", german.str());
        return DocResourceParser::getResourceFile(u"Orchard");
    }
};

TEST_F(ResourceOverlayTest, ResultHasHrefsOfBothFilesAndTranslationWins) {
    ResourceText english("orchard");
    english.add(item("graft.html", "Join trees")).add(item("prune.html", "Cut back"));
    ResourceText german("orchard");
    german.add(item("graft.html", "Veredeln")).add(item("water.html", "Giessen"));

    const Resources expected = {{u"orchard", section(u"orchard", u"Orchard",
                                                     {{u"graft.html", u"Veredeln"},
                                                      {u"prune.html", u"Cut back"},
                                                      {u"water.html", u"Giessen"}})}};
    EXPECT_EQ(overlaid(english, german), expected);
}

TEST_F(ResourceOverlayTest, ReplacesAllItemsOfAnHref) {
    ResourceText english("orchard");
    english.add(item("graft.html", "one")).add(item("graft.html", "two"));
    english.add(item("prune.html", "three"));
    ResourceText german("orchard");
    german.add(item("graft.html", "eins"));
    german.add(item("prune.html", "drei")).add(item("prune.html", "vier"));

    const auto items = overlaid(english, german).at(u"orchard").items;
    EXPECT_THAT(items.at(u"graft.html"), ElementsAre(record(u"graft.html", u"eins")));
    EXPECT_THAT(items.at(u"prune.html"),
                ElementsAre(record(u"prune.html", u"drei"), record(u"prune.html", u"vier")));
}

TEST_F(ResourceOverlayTest, HeaderComesFromTheTranslation) {
    const ResourceText english("orchard");
    ResourceText german("orchard");
    german.set("productName", "Obstgarten").set("helpLocation", "obst").set("baseCode", "OG");
    german.set("schema", "s").set("schemaVersion", "2");

    const Resources resources = overlaid(english, german);
    ASSERT_EQ(resources.size(), 1U);
    EXPECT_EQ(resources.at(u"orchard").header,
              HeaderInfo(u"s", u"2", u"Obstgarten", u"OG", u"orchard", u"obst", u"Orchard"));
}

TEST_F(ResourceOverlayTest, KeepsSectionsThatOnlyOneFileHas) {
    ResourceText english("orchard");
    english.addSupportPackage(ResourceText("ladder").add(item("climb.html", "Go up")));
    ResourceText german("orchard");
    german.addSupportPackage(ResourceText("korb").add(item("carry.html", "Tragen")));

    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {})},
        {u"ladder code", section(u"ladder", u"Orchard", {{u"climb.html", u"Go up"}})},
        {u"korb code", section(u"korb", u"Orchard", {{u"carry.html", u"Tragen"}})}};
    EXPECT_EQ(overlaid(english, german), expected);
}

TEST_F(ResourceOverlayTest, CombinesMainSectionAndSupportPackageWithTheSameKey) {
    ResourceText english("orchard");
    english.addSupportPackage(ResourceText("ladder").add(item("climb.html", "Go up")));
    ResourceText german("ladder code");
    german.add(item("steigen.html", "Steigen"));

    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {})},
        {u"ladder code", section(u"ladder code", u"Orchard",
                                 {{u"climb.html", u"Go up"}, {u"steigen.html", u"Steigen"}})}};
    EXPECT_EQ(overlaid(english, german), expected);
}

TEST_F(ResourceOverlayTest, TranslationWithoutItemsKeepsEnglishItems) {
    ResourceText english("orchard");
    english.add(item("graft.html", "Join trees"));
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join trees"}})}};
    EXPECT_EQ(overlaid(english, ResourceText("orchard")), expected);
}

TEST_F(ResourceOverlayTest, ComparesHrefsCaseSensitively) {
    ResourceText english("orchard");
    english.add(item("Graft.html", "Join trees"));
    ResourceText german("orchard");
    german.add(item("graft.html", "Veredeln"));
    const Resources expected = {
        {u"orchard", section(u"orchard", u"Orchard",
                             {{u"Graft.html", u"Join trees"}, {u"graft.html", u"Veredeln"}})}};
    EXPECT_EQ(overlaid(english, german), expected);
}

} // namespace
} // namespace docparser_tests
