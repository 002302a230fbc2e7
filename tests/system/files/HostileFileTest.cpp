#include "tests/system/SystemTest.hpp"

#include <string>

namespace docparser_tests {
namespace {

// Damaged and hostile files next to a valid one of the same product.
class HostileFileTest : public SystemTest {
protected:
    HostileFileTest() { setLanguage(u"de"); }

    bool isServed(const std::string& text) const {
        addApi("Hostile.json", text);
        return findResources(u"Hostile").has_value();
    }

    const std::string english = resourceText("orchard", {{"graft.html", "Join"}});
    const std::string german = resourceText("orchard", {{"prune.html", "Schneiden"}});
};

// Returns a file that uses most of the format and is short enough to be damaged at every byte.
std::string richText() {
    boost::json::object full = item("graft.html", "Join");
    full["inputs"] = boost::json::array{{{"name", "x"}, {"purpose", "y"}}};
    full["seealso"] = boost::json::array{{{"url", "u"}, {"name", "n"}}};
    full["deprecationstatus"] = "removed";
    ResourceText text("orchard");
    text.add(full).addSupportPackage(ResourceText("kit").add(item("use.html", "\xC3\xA4")));
    return text.str();
}

std::string nested(std::size_t depth) {
    return std::string(depth, '[') + std::string(depth, ']');
}

// Returns a resource file with an unknown key.
std::string withUnknownKey(const std::string& value) {
    std::string text = resourceText("orchard", {});
    return text.insert(1, "\"unknown\":" + value + ",");
}

TEST_F(HostileFileTest, TruncatedEnglishFileKeepsTheTranslation) {
    addApi("Orchard_de.json", german);
    const Resources germanAlone = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"prune.html", u"Schneiden"}})}};
    const std::string text = richText();
    for (std::size_t length = 0; length < text.size(); ++length) {
        addApi("Orchard.json", text.substr(0, length));
        ASSERT_EQ(DocResourceParser::getResourceFile(u"Orchard"), germanAlone) << length;
    }
    addApi("Orchard.json", text);
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").size(), 2U);
}

TEST_F(HostileFileTest, TruncatedTranslationKeepsTheEnglishFile) {
    addApi("Orchard.json", english);
    const Resources englishAlone = {
        {u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", u"Join"}})}};
    const std::string text = richText();
    for (std::size_t length = 0; length < text.size(); ++length) {
        addApi("Orchard_de.json", text.substr(0, length));
        ASSERT_EQ(DocResourceParser::getResourceFile(u"Orchard"), englishAlone) << length;
    }
}

TEST_F(HostileFileTest, FlippedBitsOfOneFileKeepTheRecordsOfTheOther) {
    addApi("Orchard_de.json", german);
    const RefItem translated = record(u"prune.html", u"Schneiden");
    const std::string text = richText();
    for (std::size_t position = 0; position < text.size(); ++position) {
        for (const int bits : {0x01, 0x20, 0x80}) {
            std::string flipped = text;
            flipped[position] = static_cast<char>(flipped[position] ^ bits);
            addApi("Orchard.json", flipped);
            const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
            ASSERT_THAT(resources.at(u"orchard").items.at(u"prune.html"),
                        testing::ElementsAre(translated))
                << position << ' ' << bits;
        }
    }
}

TEST_F(HostileFileTest, RejectsRootThatIsNotASection) {
    for (const std::string root :
         {"null", "true", "0", "-1e308", "\"x\"", "[]", "[{}]", "{}", "[[]]", "\"\"", "  ", "\n"})
        EXPECT_FALSE(isServed(root)) << root;
}

TEST_F(HostileFileTest, RejectsTextThatIsNotStrictJson) {
    EXPECT_TRUE(isServed(english));
    for (const std::string& text :
         {english + "x", english + english, "/**/" + english, english + "//", "[" + english + "]",
          withUnknownKey("[1,]"), withUnknownKey(R"({"a":1,})"), withUnknownKey("'x'"),
          withUnknownKey("NaN"), withUnknownKey("01"), withUnknownKey("\"\xFF\""),
          withUnknownKey("\"\xC0\x80\""), withUnknownKey("\"\xED\xA0\x80\""),
          withUnknownKey(R"("\ud800")"), withUnknownKey("\"\t\""), withUnknownKey(R"("\x")"),
          english + std::string(1, '\0')})
        EXPECT_FALSE(isServed(text)) << text;
}

TEST_F(HostileFileTest, IgnoresUnknownKeys) {
    for (const std::string value :
         {"null", "1e308", R"({"a":[{}]})", R"("\u0000")", R"("\ud83c\udf4e")"})
        EXPECT_TRUE(isServed(withUnknownKey(value))) << value;
}

// Returns an ASCII text in UTF-16 (2 bytes per unit) or UTF-32 (4 bytes).
std::string widened(const std::string& ascii, std::size_t bytes, bool isLittleEndian) {
    std::string text;
    for (const char character : ascii) {
        std::string unit(bytes, '\0');
        unit[isLittleEndian ? 0 : bytes - 1] = character;
        text += unit;
    }
    return text;
}

TEST_F(HostileFileTest, RejectsOtherEncodings) {
    for (const std::size_t bytes : {2U, 4U}) {
        for (const bool isLittleEndian : {false, true}) {
            const std::string padding(bytes - 2, '\0');
            const std::string mark = isLittleEndian ? "\xFF\xFE" + padding : padding + "\xFE\xFF";
            const std::string text = widened(english, bytes, isLittleEndian);
            EXPECT_FALSE(isServed(text)) << bytes << isLittleEndian;
            EXPECT_FALSE(isServed(mark + text)) << bytes << isLittleEndian;
        }
    }
    EXPECT_FALSE(isServed("\xEF\xBB\xBF" + english));
    EXPECT_FALSE(isServed(resourceText("orchard", {{"graft.html", "\xE4 in Latin-1"}})));
}

TEST_F(HostileFileTest, IgnoresOrRejectsNumbersThatAreTooLarge) {
    constexpr std::size_t kDigits = 10'000'000;
    for (const std::string number : {"1e400", "-1e400", "1e-400", "0e400", "18446744073709551616"})
        EXPECT_TRUE(isServed(withUnknownKey(number))) << number;
    EXPECT_TRUE(isServed(withUnknownKey(std::string(kDigits, '9'))));
    EXPECT_TRUE(isServed(withUnknownKey("0." + std::string(kDigits, '9'))));
    EXPECT_FALSE(isServed(withUnknownKey("1e99999999999")));
    EXPECT_FALSE(isServed(withUnknownKey("1e" + std::string(kDigits, '9'))));
    EXPECT_FALSE(isServed(withUnknownKey(std::string(kDigits, '0'))));
}

TEST_F(HostileFileTest, AcceptsNestingUpTo32Levels) {
    // The root object is the first of the 32 levels.
    EXPECT_TRUE(isServed(withUnknownKey(nested(31))));
    EXPECT_FALSE(isServed(withUnknownKey(nested(32))));
    EXPECT_FALSE(isServed(withUnknownKey(nested(1'000'000))));
    EXPECT_FALSE(isServed(std::string(1'000'000, '[')));
}

TEST_F(HostileFileTest, ManyPackagesWithTheSameBaseCodeAreOneSection) {
    ResourceText text("orchard");
    for (int count = 0; count < 5000; ++count)
        text.addSupportPackage(ResourceText("kit"));
    addApi("Orchard.json", text.str());
    EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard").size(), 2U);
}

TEST_F(HostileFileTest, RejectsZeroBytes) {
    EXPECT_FALSE(isServed(std::string(1 << 20, '\0')));
}

} // namespace
} // namespace docparser_tests
