#include "docparser/retrieval/ResourceText.hpp"

#include "docparser/parsing/FormatError.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/LookupParser.hpp"

#include <boost/json/parse.hpp>
#include <boost/system/system_error.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::docparser;
using namespace reference::property;
using testing::ElementsAre;
using testing::Pair;

ResourceMap<RefItem> parse(const std::string& text) {
    return parseResourceText<RefItem>(text, u"p", parseRefItemSection, unobserved);
}

// The text of a section, without its braces.
std::string section(const std::string& helpFolder, const std::string& baseCode,
                    const std::string& refItems = "[]") {
    return R"("productName": "n", "helpLocation": "l", "helpFolder": ")" + helpFolder +
           R"(", "baseCode": ")" + baseCode + R"(", "refItems": )" + refItems;
}

std::string withPackages(const std::string& packages) {
    return '{' + section("folder", "code") + R"(, "supportPackages": [)" + packages + "]}";
}

std::vector<std::u16string> keysOf(const ResourceMap<RefItem>& sections) {
    std::vector<std::u16string> keys;
    for (const auto& [key, value] : sections)
        keys.push_back(key);
    return keys;
}

TEST(ResourceText, KeysTheMainSectionByHelpFolderAndPackagesByBaseCode) {
    const auto sections = parse(
        withPackages('{' + section("folder2", "zeta") + "},{" + section("folder3", "alpha") + '}'));
    EXPECT_THAT(keysOf(sections), ElementsAre(u"alpha", u"folder", u"zeta"));
    EXPECT_EQ(sections.at(u"folder").header,
              HeaderInfo(u"", u"", u"n", u"code", u"folder", u"l", u"p"));
    EXPECT_EQ(sections.at(u"alpha").header,
              HeaderInfo(u"", u"", u"n", u"alpha", u"folder3", u"l", u"p"));
    EXPECT_EQ(sections.at(u"zeta").header,
              HeaderInfo(u"", u"", u"n", u"zeta", u"folder2", u"l", u"p"));
}

TEST(ResourceText, KeepsTheFirstOfTwoPackagesWithTheSameBaseCode) {
    const auto sections = parse(
        withPackages('{' + section("first", "pack") + "},{" + section("second", "pack") + '}'));
    EXPECT_THAT(keysOf(sections), ElementsAre(u"folder", u"pack"));
    EXPECT_EQ(sections.at(u"pack").header.getHelpFolder(), u"first");
}

TEST(ResourceText, IgnoresAPackageWhoseBaseCodeIsTheMainHelpFolder) {
    const auto sections = parse(withPackages(
        '{' + section("other", "folder", R"([{"href": "a", "refpurpose": ""}])") + '}'));
    EXPECT_THAT(keysOf(sections), ElementsAre(u"folder"));
    EXPECT_EQ(sections.at(u"folder").header.getBaseCode(), u"code");
    EXPECT_TRUE(sections.at(u"folder").items.empty());
}

TEST(ResourceText, IgnoresPackagesWithinAPackage) {
    const auto sections = parse(withPackages(
        '{' + section("f", "pack") + R"(, "supportPackages": [{)" + section("g", "inner") + "}]}"));
    EXPECT_THAT(keysOf(sections), ElementsAre(u"folder", u"pack"));
}

TEST(ResourceText, RefusesTheFileForADamagedPackageThatWouldBeIgnored) {
    const std::string damaged = "{" + section("f", "folder", "5") + "}";
    try {
        parse(withPackages('{' + section("f", "pack") + "}," + damaged));
        FAIL() << "nothing was thrown";
    } catch (const FormatError& error) {
        EXPECT_STREQ(error.what(),
                     "/supportPackages/1/refItems: expected an array, found a number");
    }
}

TEST(ResourceText, CopiesTheProductIntoEveryHeader) {
    for (const std::u16string product : {u"Orchard", u"", u"\u6A39/..\\ "}) {
        const auto sections =
            parseResourceText<RefItemLookup>(withPackages('{' + section("f", "pack") + '}'),
                                             product, parseRefItemLookupSection, unobserved);
        EXPECT_EQ(sections.at(u"folder").header.getProduct(), product);
        EXPECT_EQ(sections.at(u"pack").header.getProduct(), product);
    }
}

TEST(ResourceText, UsesTheLastValueOfARepeatedKey) {
    const auto sections =
        parse(R"({"helpFolder": 5, )" +
              section("folder", "code",
                      R"([{"href": "a", "refpurpose": "first", "refpurpose": "last"}])") +
              R"(, "baseCode": "last"})");
    EXPECT_EQ(sections.at(u"folder").header.getBaseCode(), u"last");
    EXPECT_EQ(sections.at(u"folder").items.at(u"a").at(0).getRefPurpose(), u"last");
}

TEST(ResourceText, ResolvesEscapesBeforeStringsAreConverted) {
    const auto sections = parse('{' +
                                section("folder", "code",
                                        R"([{"href": "\u00e9\t", "refpurpose":
                                        "\u00e9\ud83c\udf33\u0000\"\/"}])") +
                                '}');
    EXPECT_EQ(sections.at(u"folder").items.at(u"\u00C3\u00A9\t").at(0).getRefPurpose(),
              std::u16string(u"\u00E9\U0001F333\0\"/", 6));
}

// --- invalid JSON

void expectNoJson(const std::string& text) {
    EXPECT_THROW(parse(text), boost::system::system_error) << text.substr(0, 40);
}

TEST(ResourceText, RefusesAnEmptyOrBlankString) {
    expectNoJson("");
    expectNoJson(" \n\t\r");
}

TEST(ResourceText, RefusesCharactersAroundTheDocument) {
    const std::string good = '{' + section("folder", "code") + '}';
    EXPECT_NO_THROW(parse(" \r\n\t" + good + "\n \t\r"));
    expectNoJson("\xEF\xBB\xBF" + good);
    expectNoJson(good + std::string(1, '\0'));
    expectNoJson(good + "x");
    expectNoJson(good + good);
}

TEST(ResourceText, RefusesCommentsTrailingCommasAndIllFormedUtf8) {
    const auto withValue = [](const std::string& value) {
        return '{' + section("folder", "code") + R"(, "x": )" + value + '}';
    };
    EXPECT_NO_THROW(parse(withValue("1")));
    for (const char* value :
         {"1,", "/* */ 1", "1 // one\n", "[1,]", "'1'", "NaN", "01", "\"\t\"", "\"\xE9\"",
          "\"\xC0\x80\"", "\"\xED\xA0\x80\"", "\"\\ud800\"", "\"\\udc00\"", "\"\\x41\"", "tru"})
        expectNoJson(withValue(value));
}

// A document with `depth` levels of nesting, including the document itself.
std::string nested(std::size_t depth) {
    return '{' + section("folder", "code") + R"(, "x": )" + std::string(depth - 1, '[') +
           std::string(depth - 1, ']') + '}';
}

TEST(ResourceText, AcceptsNestingOf32LevelsAndRefuses33) {
    EXPECT_NO_THROW(parse(nested(32)));
    expectNoJson(nested(33));
    expectNoJson(std::string(1'000'000, '['));
}

// --- the section parser

TEST(ResourceText, PassesExceptionsOfTheSectionParserToTheCaller) {
    const SectionParser<RefItem> failing = [](const json::value&,
                                              const std::u16string&) -> DocResource<RefItem> {
        throw std::domain_error("no section today");
    };
    EXPECT_THROW(parseResourceText<RefItem>("{}", u"p", failing, unobserved), std::domain_error);
}

TEST(ResourceText, RefusesARootThatIsNotAnObject) {
    const SectionParser<RefItem> easy = [](const json::value&, const std::u16string&) {
        return DocResource<RefItem>{HeaderInfo(u"", u"", u"", u"", u"f", u"", u""), {}};
    };
    EXPECT_THAT(keysOf(parseResourceText<RefItem>("{}", u"p", easy, unobserved)),
                ElementsAre(u"f"));
    EXPECT_THROW(parseResourceText<RefItem>("[]", u"p", easy, unobserved), FormatError);
}

// The last result of the parser below.
const std::vector<RefItemLookup>* handedOut = nullptr;
const char16_t* handedOutCharacters = nullptr;

DocResource<RefItemLookup> parseAndRemember(const json::value& document,
                                            const std::u16string& product) {
    auto result = parseRefItemLookupSection(document, product);
    handedOut = &result.items.begin()->second;
    handedOutCharacters = result.items.begin()->second.front().getName().data();
    return result;
}

TEST(ResourceText, MovesItemsIntoTheResult) {
    const std::string name(100, 'n');
    const auto sections = parseResourceText<RefItemLookup>(
        '{' +
            section("folder", "code",
                    R"([{"name": ")" + name + R"(", "refpurpose": "", "href": ""}])") +
            '}',
        u"p", parseAndRemember, unobserved);
    const auto& items = sections.at(u"folder").items;
    EXPECT_EQ(&items.begin()->second, handedOut);
    EXPECT_EQ(items.begin()->second.front().getName().data(), handedOutCharacters);
}

} // namespace
} // namespace docparser_tests
