#include "tests/unit/tools/refdoc/diff/ReportChanges.hpp"
#include "tools/refdoc/diff/report/MarkdownText.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using namespace refdoc::diff;

TEST(ReportMarkdownTest, GroupsTheChangesOfAProduct) {
    EXPECT_EQ(wholeOutput(*markdownOutput(), changeOfEachId()),
              "# Documentation changes\n"
              "\n"
              "## Orchard\n"
              "\n"
              "### Breaking changes\n"
              "\n"
              "- Product removed: 3 items\n"
              "- Section removed: `orchard`, empty\n"
              "- Item removed: `ref/fade.html`\n"
              "- Item moved: `hum` (`ref/hum.html` → `ref/buzz.html`), 87 % sure\n"
              "- Entry removed: `fade` (`ref/fade.html`)\n"
              "\n"
              "### Deprecated\n"
              "\n"
              "- `smooth` (`ref/smooth.html`, record 2) in the lookup index, deprecated: "
              "<del>false</del><ins>true</ins>\n"
              "\n"
              "### New\n"
              "\n"
              "- Product added: 3 items\n"
              "- Section added: `orchard`, 3 items, 1 entry\n"
              "- Item added: `wave, ripple` (`ref/wave.html`)\n"
              "- Entry added: `wave` (`ref/wave.html`)\n"
              "\n"
              "### Changed\n"
              "\n"
              "- Header of section `orchard`, help folder: help/<del>a</del><ins>b</ins>\n"
              "- `smooth` (`ref/smooth.html`), purpose: Shift a "
              "<del>series</del><ins>signal</ins>\n"
              "\n"
              "12 differences: 5 breaking, 5 notable, 2 textual.\n");
}

TEST(ReportMarkdownTest, NamesSectionsIfThereAreSeveral) {
    Change other = inOrchard(ChangeId::ItemRemoved, ChangeClass::Breaking);
    other.section = "cellar";
    other.href = "a.html";
    EXPECT_EQ(
        productOutput(*markdownOutput(),
                      {other, smoothField(ChangeClass::Breaking, "/inputs/0",
                                          json(R"({"objectInfo": {"name": "x"}})"), nullptr)}),
        "\n"
        "## Orchard\n"
        "\n"
        "### Breaking changes\n"
        "\n"
        "- Item removed: `a.html` in section `cellar`\n"
        "- `smooth` (`ref/smooth.html`) in section `orchard`, input 1 removed: `x`\n");
}

TEST(ReportMarkdownTest, ListsDamagedFiles) {
    EXPECT_EQ(wholeOutput(*markdownOutput(), {},
                          {{Side::New, "a`b.json", "expected <b>"}, {Side::Both, "c.json", "x"}}),
              "# Documentation changes\n"
              "\n"
              "## Damaged files\n"
              "\n"
              "- ``a`b.json`` (new): expected \\<b\\>\n"
              "- `c.json` (both): x\n"
              "\n"
              "No differences in undamaged files.\n");
    EXPECT_EQ(wholeOutput(*markdownOutput(), {}), "# Documentation changes\n\nNo differences.\n");
}

TEST(ReportMarkdownTest, CodeSpansHoldAnyText) {
    EXPECT_EQ(codeSpan(""), "");
    EXPECT_EQ(codeSpan("a|b <i> *c*"), "`a|b <i> *c*`");
    EXPECT_EQ(codeSpan("a`b"), "``a`b``");
    EXPECT_EQ(codeSpan("``"), "``` `` ```");
    EXPECT_EQ(codeSpan("`a"), "`` `a ``");
    EXPECT_EQ(codeSpan(" a "), "`  a  `");
    EXPECT_EQ(codeSpan("a\n\n# b\x1b"), "`a␊␊# b␛`");
}

TEST(ReportMarkdownTest, ProseHasNoMarkup) {
    EXPECT_EQ(escapedMarkdown("plain, 50 % (x)."), "plain, 50 % (x).");
    EXPECT_EQ(escapedMarkdown("`a` *b* _c_ ~d~"), "\\`a\\` \\*b\\* \\_c\\_ \\~d\\~");
    EXPECT_EQ(escapedMarkdown("<script>&amp;</script>"), "\\<script\\>\\&amp;\\</script\\>");
    EXPECT_EQ(escapedMarkdown("[a](b) ![c](d)"), "\\[a\\](b) \\!\\[c\\](d)");
    EXPECT_EQ(escapedMarkdown("https://a.b www.c.d"), "https\\://a.b www\\.c.d");
    EXPECT_EQ(escapedMarkdown("me@a.b @you #1"), "me\\@<!-- -->a.b \\@<!-- -->you \\#1");
    EXPECT_EQ(escapedMarkdown("a|b $c$ \\ {d}"), "a\\|b \\$c\\$ \\\\ \\{d\\}");
    EXPECT_EQ(escapedMarkdown("a\n# b\r\n- c"), "a␊\\# b␍␊- c");
}

TEST(ReportMarkdownTest, HostileChangesStayOnTheirLines) {
    Change change = smoothField(ChangeClass::Textual, "/refPurpose", "a</del>\n\n# x", "`b`\n- y");
    change.name = "n`\n## m";
    change.href = "](javascript:x)";
    EXPECT_EQ(markdownOutput()->product({"P\n# <b>", {change}}),
              "\n"
              "## P␊\\# \\<b\\>\n"
              "\n"
              "### Changed\n"
              "\n"
              "- ``n`␊## m`` (`](javascript:x)`), purpose: "
              "<del>a\\</del\\>␊␊\\# x</del><ins>\\`b\\`␊- y</ins>\n");
}

} // namespace
} // namespace refdoc_tests
