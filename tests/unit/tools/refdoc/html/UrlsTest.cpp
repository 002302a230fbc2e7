#include "tools/refdoc/html/Urls.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace refdoc::html {
namespace {

TEST(UrlsTest, RelativeUrlsLeadThroughTheFoldersThatPagesShare) {
    struct Case {
        std::string_view from;
        std::string_view to;
        std::string_view url;
    };
    for (const auto& [from, to, url] : {
             Case{"index.html", "orchard/index.html", "orchard/index.html"},
             Case{"orchard/index.html", "index.html", "../index.html"},
             Case{"orchard/ref/a.html", "orchard/ref/b.html", "b.html"},
             Case{"orchard/ref/a.html", "orchard/ref/a.html", "a.html"},
             Case{"orchard/ref/a.html", "orchard/reference/a.html", "../reference/a.html"},
             Case{"de/orchard/ref/a.html", "orchard/ref/a.html", "../../../orchard/ref/a.html"},
             Case{"orchard/ref/a.html", "refdoc-site/", "../../refdoc-site/"},
         }) {
        EXPECT_EQ(relativeUrl(from, to), url) << from << " to " << to;
    }
}

TEST(UrlsTest, NamesAndFragmentsAreEncoded) {
    EXPECT_EQ(relativeUrl("", "a b/c%3F#d?.html"), "a%20b/c%253F%23d%3F.html");
    EXPECT_EQ(relativeUrl("", "javascript:alert(1)"), "javascript%3Aalert%281%29");
    EXPECT_EQ(relativeUrl("", "größe.html", "a b\"#ß"), "gr%C3%B6%C3%9Fe.html#a%20b%22%23%C3%9F");
}

TEST(UrlsTest, OnlyHttpLeadsToTheWeb) {
    EXPECT_EQ(webUrl("https://a.example/b?c=d&e#f"), "https://a.example/b?c=d&e#f");
    EXPECT_EQ(webUrl("HTTP://a.example/%20"), "HTTP://a.example/%20");
    EXPECT_EQ(webUrl("http://a.example/%25/100%"), "http://a.example/%25/100%");
    EXPECT_EQ(webUrl("http://a.example/ \"<ß"), "http://a.example/%20%22%3C%C3%9F");
    for (const char* url :
         {"", "http:", "javascript:alert(1)", " https://a.example", "//a.example",
          "data:text/html,x", "file:///etc/passwd", "java\nscript:x", "httpx://a"})
        EXPECT_EQ(webUrl(url), std::nullopt) << url;
}

} // namespace
} // namespace refdoc::html
