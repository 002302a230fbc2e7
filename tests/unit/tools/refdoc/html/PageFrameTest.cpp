#include "tools/refdoc/html/PageFrame.hpp"

#include <gtest/gtest.h>

namespace refdoc::html {
namespace {

TEST(PageFrameTest, SurroundsTheContent) {
    const PageFrame frame{.title = u"a < b",
                          .language = "ar",
                          .assets = "../x/",
                          .search = {"../y/", "../", true},
                          .crumbs = {{u"Start", "../index.html"}},
                          .languages = {{"en", "../../a.html", false}, {"ar_EG", "a.html", true}}};
    EXPECT_EQ(
        framedPage(frame, [](HtmlWriter& writer) { writer.text("content"); }),
        R"(<!DOCTYPE html>
<html lang="en" dir="rtl"><head><meta charset="utf-8">)"
        R"(<meta http-equiv="Content-Security-Policy" content="default-src &#39;none&#39;; )"
        R"(script-src &#39;self&#39;; style-src &#39;self&#39;; img-src &#39;self&#39;; connect-src &#39;self&#39;; )"
        R"(base-uri &#39;none&#39;; form-action &#39;none&#39;">)"
        R"(<meta name="viewport" content="width=device-width, initial-scale=1">)"
        R"(<meta name="referrer" content="no-referrer"><title>a &lt; b</title>)"
        R"(<link rel="stylesheet" href="../x/style.css">)"
        R"(<link rel="icon" href="../x/icon.svg"><script src="../x/script.js" defer></script>)"
        R"(</head><body><a class="skip" href="#refdoc-content">Skip to the content</a>)"
        R"(<header><nav aria-label="Path" class="crumbs"><a href="../index.html">)"
        R"(<bdi>Start</bdi></a></nav><nav aria-label="Language" class="languages">)"
        R"(<a href="../../a.html" hreflang="en">en</a><span aria-current="true">ar-EG</span>)"
        R"(</nav><div class="search" role="search" data-index="../y/" data-pages="../" )"
        R"(data-focus hidden><label>Search <input type="search" autocomplete="off" )"
        R"(placeholder="Press / to search"></label><p role="status"></p><ol></ol></div>)"
        R"(</header><main id="refdoc-content">content</main></body></html>
)");
}

TEST(PageFrameTest, ScriptOrLanguageDecidesTheDirection) {
    for (const char* language : {"ar", "he", "fa_IR", "ur", "az_Arab", "ku_Arab_IQ"})
        EXPECT_TRUE(isRightToLeft(language)) << language;
    for (const char* language : {"", "en", "de", "ja", "arn", "ur_Latn", "az_Latn_AZ"})
        EXPECT_FALSE(isRightToLeft(language)) << language;
}

} // namespace
} // namespace refdoc::html
