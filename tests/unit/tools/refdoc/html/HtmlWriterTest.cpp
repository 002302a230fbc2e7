#include "tools/refdoc/html/HtmlWriter.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

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

TEST(HtmlWriterTest, DirectionalIsolatesEndWithTheirElement) {
    const std::pair<std::u16string_view, std::string_view> cases[] = {
        {u"a\u2067b\u2069c", "a\u2067b\u2069c"},
        {u"\u2066a\u2068b", "\u2066a\u2068b\u2069\u2069"},
        {u"\u2069a\u2066\u2069\u2069b", "a\u2066\u2069b"},
    };
    for (const auto& [text, expected] : cases) {
        HtmlWriter writer;
        writer.text(text);
        EXPECT_EQ(writer.take(), expected);
    }
}

TEST(HtmlWriterTest, AppendsWhatAnotherWriterHasWritten) {
    HtmlWriter part;
    part.element("b", {}, "<");
    HtmlWriter writer;
    writer.element("p", {}, [&] {
        writer.append(part);
        writer.append(part);
    });
    EXPECT_EQ(writer.take(), "<p><b>&lt;</b><b>&lt;</b></p>");
}

} // namespace
} // namespace refdoc::html
