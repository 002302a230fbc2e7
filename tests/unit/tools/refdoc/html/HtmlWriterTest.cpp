#include "tools/refdoc/html/HtmlWriter.hpp"

#include <gtest/gtest.h>

namespace refdoc::html {
namespace {

using namespace std::string_literals;

TEST(HtmlWriterTest, NestsElementsAndText) {
    HtmlWriter writer;
    writer.element("p", {{"class", "note"}, {"hidden", ""}, {"id", std::nullopt}}, [&] {
        writer.text("a");
        writer.emptyElement("br", {});
        writer.element("b", {}, u"ß");
    });
    EXPECT_EQ(writer.take(), "<p class=\"note\" hidden>a<br><b>ß</b></p>");
    EXPECT_EQ(writer.take(), "");
}

TEST(HtmlWriterTest, TextAndValuesRemainText) {
    HtmlWriter writer;
    writer.element("a", {{"href", R"("><img src=x onerror='alert(1)'>&amp;)"}},
                   u"</a><script>alert(\"1\")</script>");
    EXPECT_EQ(writer.take(),
              "<a href=\"&quot;&gt;&lt;img src=x onerror=&#39;alert(1)&#39;&gt;&amp;amp;\">"
              "&lt;/a&gt;&lt;script&gt;alert(&quot;1&quot;)&lt;/script&gt;</a>");
}

TEST(HtmlWriterTest, ControlCharactersAndUnpairedSurrogatesAreReplaced) {
    HtmlWriter writer;
    writer.text(u"a\0b\x1B\x9F\n\r\n\t"s + char16_t(0xD800));
    EXPECT_EQ(writer.take(), "a␀b␛\uFFFD\n\n \uFFFD");
}

} // namespace
} // namespace refdoc::html
