#include "tools/refdoc/pages/FileNames.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace refdoc::site {
namespace {

TEST(FileNamesTest, KeepsNamesThatEverySystemStores) {
    EXPECT_EQ(FileNames{}.addPage(u"ref/smooth.html"), "ref/smooth.html");
    EXPECT_EQ(FileNames{}.addPage(u"größe 1(x)+.HTM"), "größe 1(x)+.HTM");
}

TEST(FileNamesTest, EncodesWhatSomeSystemsRefuse) {
    struct Case {
        std::u16string_view href;
        std::string_view path;
    };
    for (const auto& [href, path] : {
             Case{u"a.html#b?c.html", "a.html#b%3Fc.html"},
             Case{u"100%.html", "100%25.html"},
             Case{u"a\\b:c*d\"e<f>g|h.html", "a%5Cb%3Ac%2Ad%22e%3Cf%3Eg%7Ch.html"},
             Case{u"a\n.html", "a%0A.html"},
             Case{u"../../a.html", ".%2E/.%2E/a.html"},
             Case{u"./a. /b.html", "%2E/a.%20/b.html"},
             Case{u"/a//b.html", "_/a/_/b.html"},
             Case{u"con.html", "%63on.html"},
             Case{u"AUX/com1.html", "%41UX/%63om1.html"},
             Case{u"console.html", "console.html"},
             Case{u"", "_.html"},
             Case{u"ref/", "ref/_.html"},
             Case{u"ref/tool.js", "ref/tool.js.html"},
         }) {
        EXPECT_EQ(FileNames{}.addPage(std::u16string(href)), path);
    }
    EXPECT_EQ(FileNames{}.addFolder(u"help/orchard"), "help%2Forchard");
}

TEST(FileNamesTest, NumbersNamesThatDifferOnlyInCase) {
    FileNames names{"index.html", "de"};
    EXPECT_EQ(names.addPage(u"a.html"), "a.html");
    EXPECT_EQ(names.addPage(u"A.html"), "A~2.html");
    EXPECT_EQ(names.addPage(u"a.HTML"), "a~3.HTML");
    EXPECT_EQ(names.addPage(u"a~2.html"), "a~2~2.html");
    EXPECT_EQ(names.addPage(u"Index.html"), "Index~2.html");
    EXPECT_EQ(names.addFolder(u"DE"), "DE~2");
    EXPECT_EQ(names.addFolder(u"de"), "de~3");
}

TEST(FileNamesTest, PagesShareFoldersButNotNames) {
    FileNames names{};
    EXPECT_EQ(names.addPage(u"a.html"), "a.html");
    EXPECT_EQ(names.addPage(u"a.html/b.html"), "a.html~2/b.html");
    EXPECT_EQ(names.addPage(u"ref/b.html"), "ref/b.html");
    EXPECT_EQ(names.addPage(u"ref/c.html"), "ref/c.html");
    EXPECT_EQ(names.addFolder(u"ref"), "ref~2");
    EXPECT_EQ(names.addFolder(u"orchard"), "orchard");
    EXPECT_EQ(names.addPage(u"orchard/a.html"), "orchard~2/a.html");
}

TEST(FileNamesTest, CutsLongNames) {
    FileNames names{};
    const std::u16string longName(1'000'000, u'é');
    const std::string cut = std::string(names.addPage(longName));
    std::string expected;
    for (int letter = 0; letter < 100; ++letter)
        expected += "é";
    EXPECT_EQ(cut, expected + ".html");
    EXPECT_EQ(names.addPage(longName + u"x"), expected + "~2.html");
    std::u16string deep;
    for (int level = 0; level < 1000; ++level)
        deep += u"a/";
    EXPECT_EQ(names.addPage(deep + u"b.html"), "b.html");
}

} // namespace
} // namespace refdoc::site
