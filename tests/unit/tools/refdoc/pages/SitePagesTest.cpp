#include "tools/refdoc/pages/SitePages.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/refdoc/commands/FullProduct.hpp"
#include "tools/refdoc/site/ProductReader.hpp"

#include <boost/algorithm/string/replace.hpp>
#include <gtest/gtest.h>

#include <regex>
#include <string>

namespace refdoc::site {
namespace {

using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::LoadAccount;

// The content of a page, with each block on a line of its own, and without folders in paths.
std::string blocksOf(std::string page) {
    boost::replace_all(
        page, fl::i18n::to_string(DocResourceParser::getReferenceRoots()->referenceApiFolder), "");
    boost::replace_all(page, "\\Orchard", "/Orchard");
    const std::size_t start = page.find("<main");
    const std::string content = page.substr(start, page.find("</body>") - start);
    static const std::regex block(
        "(<(?:article|dd|details|div|dl|dt|h1|h2|h3|li|p|pre|section|summary|table|"
        "tbody|tr|ul)[ >])");
    return std::regex_replace(content, block, "\n$1");
}

class SitePagesTest : public testing::Test {
protected:
    SitePagesTest() {
        DocResourceParser::setReferenceRoot(folder_.u16());
        folder_.write("docCatalog/referenceapi/Orchard.json", refdoc_tests::kFullProduct);
        LoadAccount failures;
        product_ = readProduct(u"Orchard", languages_, failures);
        product_.pages[u"orchard"] = {"orchard/index.html",
                                      {{u"graft.html", "orchard/graft.html"}}};
    }
    ~SitePagesTest() override { DocResourceParser::restoreDefaultSettings(); }

    docparser_tests::TemporaryFolder folder_;
    SiteLanguages languages_{{u"en", ""}};
    Product product_;
};

TEST_F(SitePagesTest, ItemPageHasEveryField) {
    EXPECT_EQ(blocksOf(itemPage(languages_, product_, product_.editions.front(), u"orchard",
                                u"graft.html")),
              R"html(<main id="refdoc-content">
<article>
<h1><span class="entity"><bdi>graft</bdi> <small>class</small></span> <span class="entity"><bdi>graft</bdi> <small>constructor method</small></span> <span class="entity"><bdi>join</bdi> <small>function</small></span> </h1>
<p class="purpose"><bdi>Join two trees</bdi></p>
<p class="note warning"><strong>discouraged</strong>: not recommended for new work</p>
<dl class="facts">
<dt>Link</dt>
<dd><code><bdi>graft.html</bdi></code></dd>
<dt>Package</dt>
<dd><code><bdi>orchard.trees</bdi></code></dd>
<dt>Introduced</dt>
<dd><code><bdi>1.2</bdi></code></dd>
<dt>Picture</dt>
<dd><code><bdi>graft.png</bdi></code></dd>
<dt>Shows</dt>
<dd><bdi>Two trees</bdi></dd></dl>
<p class="description"><bdi>Joins the scion to the rootstock and waits until both have grown together, which takes about a year.
Both stay alive.</bdi></p>
<h2>Syntax: <bdi>Join</bdi></h2>
<ul class="syntaxes">
<li><code><bdi>t = graft(a, b)</bdi></code></li>
<li><code><bdi>t = graft(a, b, way: w)</bdi></code></li></ul>
<h2>Syntax</h2>
<p class="type">Type: command</p>
<ul class="syntaxes">
<li><code><bdi>graft a b</bdi></code></li></ul>
<h2>Inputs</h2>
<dl class="arguments">
<div id="in-a">
<dt><code><bdi>a</bdi></code></dt>
<dd>
<p><bdi>Rootstock</bdi></p></dd></div>
<div id="in-b">
<dt><code><bdi>b</bdi></code></dt>
<dd>
<p><bdi>Scion</bdi></p>
<p class="values">Syntax: command</p></dd></div>
<div id="in-way">
<dt><code><bdi>way</bdi></code><small> name-value pair</small></dt>
<dd>
<p><bdi>How to cut, which depends on how thick both are</bdi></p>
<p class="values">Values: <code><bdi>whip</bdi></code> <code><bdi>cleft</bdi></code></p>
<p class="values">Default: <code><bdi>whip</bdi></code></p></dd></div></dl>
<h2>Inputs: <bdi>More</bdi></h2>
<dl class="arguments">
<div id="in-wax">
<dt><code><bdi>wax</bdi></code></dt>
<dd>
<p><bdi>Seal</bdi></p></dd></div></dl>
<h2>Outputs</h2>
<dl class="arguments">
<div id="out-t">
<dt><code><bdi>t</bdi></code></dt>
<dd>
<p><bdi>Tree</bdi></p>
<p class="values">Values: <code><bdi>alive</bdi></code> <code><bdi>dead</bdi></code></p></dd></div></dl>
<h2>Parameters</h2>
<dl class="arguments">
<div id="par-sun">
<dt><code><bdi>sun</bdi></code></dt>
<dd>
<p><bdi>Hours a day</bdi></p>
<p class="values">Default: <code><bdi>6</bdi></code></p></dd></div></dl>
<h2>Properties: <bdi>Look</bdi></h2>
<dl class="arguments">
<div id="prop_Height">
<dt><code><bdi>Height</bdi></code></dt>
<dd>
<p><bdi>In m</bdi></p>
<p class="values">Default: <code><bdi>1</bdi></code></p></dd></div></dl>
<h2>Properties</h2>
<dl class="arguments">
<div id="prop_Age">
<dt><code><bdi>Age</bdi></code></dt>
<dd>
<p><bdi>In years</bdi></p></dd></div></dl>
<h2>Examples</h2>
<ul class="examples">
<li><bdi>A first tree</bdi> <small><code><bdi>ex/first.html</bdi></code></small>
<p class="values">Open with: <code><bdi>orchard demo first</bdi></code></p></li></ul>
<h2>See also</h2>
<ul class="links">
<li><bdi>prune</bdi> <small><code><bdi>prune.html</bdi></code></small></li>
<li><bdi>sowing</bdi> <small><code><bdi>sow.html</bdi></code></small></li></ul>
<details class="origin">
<summary>Where this record comes from</summary>
<ul>
<li><code><bdi>/Orchard.json:4:16</bdi></code></li></ul></details></article></main>)html");
}

TEST_F(SitePagesTest, SectionPageHasTheHeaderAndTheItemsByType) {
    EXPECT_EQ(blocksOf(sectionPage(languages_, product_, product_.editions.front(), u"orchard")),
              R"html(<main id="refdoc-content">
<h1><bdi>Orchard</bdi></h1>
<dl class="facts">
<dt>Help folder</dt>
<dd><code><bdi>orchard</bdi></code></dd>
<dt>Base code</dt>
<dd><code><bdi>OR</bdi></code></dd>
<dt>Help location</dt>
<dd><code><bdi>help/or</bdi></code></dd>
<dt>Format</dt>
<dd><code><bdi>referenceapi</bdi></code></dd>
<dt>Format version</dt>
<dd><code><bdi>2.1</bdi></code></dd>
<dt>Resource file</dt>
<dd><code><bdi>Orchard</bdi></code></dd></dl>
<p class="filter" hidden><label>Filter <input type="search" autocomplete="off"></label></p>
<section class="items">
<h2>functions</h2>
<ul>
<li><a href="graft.html"><bdi>join</bdi></a> <bdi>Join two trees</bdi> <small class="mark warning">discouraged</small></li></ul></section>
<section class="items">
<h2>classes</h2>
<ul>
<li><a href="graft.html"><bdi>graft</bdi></a> <bdi>Join two trees</bdi> <small class="mark warning">discouraged</small></li></ul></section>
<section class="items">
<h2>methods</h2>
<ul>
<li><a href="graft.html"><bdi>graft</bdi></a> <bdi>Join two trees</bdi> <small class="mark warning">discouraged</small></li></ul></section>
<details class="origin">
<summary>Where this product comes from</summary>
<ul>
<li><code><bdi>/Orchard.json:1:1</bdi></code></li></ul></details></main>)html");
}

// The page of an edition whose only file is broken.
std::string brokenPageOf(const reference::docparser::FileAccount& account,
                         const std::string& text) {
    const SiteLanguages languages{{u"en", ""}};
    const EditionContent content{.brokenFiles = {{account, text}}};
    const Product product{
        .editions = {{u"en", std::make_shared<const EditionContent>(content)}},
        .pages = {{u"orchard", {.index = "orchard/index.html", .displayName = u"Orchard"}}}};
    return blocksOf(brokenPage(languages, product, product.editions.front(), u"orchard"));
}

TEST_F(SitePagesTest, BrokenPageMarksThePositionOfTheError) {
    EXPECT_EQ(brokenPageOf({.path = u"Orchard.json", .fate = Fate::Malformed}, "{\n  \"<a>\": }\n"),
              R"html(<main id="refdoc-content">
<h1><bdi>Orchard</bdi></h1>
<h2>This file cannot be used</h2>
<p><code><bdi>Orchard.json</bdi></code></p>
<section class="finding">
<h3><span class="error">error</span> <code>malformed-json</code></h3>
<ul>
<li><bdi>invalid JSON, so the whole file is dropped: missing value after the colon; add one</bdi>
<p><code><bdi>Orchard.json:2:10</bdi></code></p>
<pre dir="ltr" tabindex="0">  &quot;&lt;a&gt;&quot;: }
         ^</pre></li></ul>
<details>
<summary>What this means and how to fix it</summary>
<p>A file that is not valid JSON is dropped completely, like a missing file. An empty file is not valid either. Fix the error at the reported position.</p></details></section></main>)html");
}

TEST_F(SitePagesTest, BrokenPageNamesTheReasonOfAFileThatWasNotRead) {
    EXPECT_EQ(brokenPageOf({.path = u"Orchard.json", .fate = Fate::NotRegular}, ""),
              R"html(<main id="refdoc-content">
<h1><bdi>Orchard</bdi></h1>
<h2>This file cannot be used</h2>
<p><code><bdi>Orchard.json</bdi></code></p>
<section class="finding">
<h3><span class="error">error</span> <code>not-a-file</code></h3>
<ul>
<li><bdi>a folder, pipe or device has the name of a resource file</bdi>
<p><code><bdi>Orchard.json</bdi></code></p></li></ul>
<details>
<summary>What this means and how to fix it</summary>
<p>Only regular files are read. Folders, pipes, sockets and devices are skipped. Rename or remove it.</p></details></section></main>)html");
}

TEST_F(SitePagesTest, StartPageListsSections) {
    const std::vector<SectionSummary> sections{
        {.displayName = u"Cellar", .itemCount = 12, .languages = {u"en", u"de"}, .index = "a"},
        {.displayName = u"Hives", .isBroken = true, .index = "h"},
        {.displayName = u"Orchard", .isInstalled = true, .deprecatedCount = 3, .index = "b/c"}};
    EXPECT_EQ(blocksOf(startPage(languages_, languages_.front(), sections, {})),
              R"html(<main id="refdoc-content">
<h1>Reference documentation</h1>
<h2>Installed</h2>
<table><thead>
<tr><th scope="col">Product</th><th scope="col">Items</th><th scope="col">Deprecated</th><th scope="col">Languages</th></tr></thead>
<tbody>
<tr><th scope="row"><a href="b/c"><bdi>Orchard</bdi></a></th><td>0</td><td>3</td><td></td></tr></tbody></table>
<h2>Not installed</h2>
<table><thead>
<tr><th scope="col">Product</th><th scope="col">Items</th><th scope="col">Deprecated</th><th scope="col">Languages</th></tr></thead>
<tbody>
<tr><th scope="row"><a href="a"><bdi>Cellar</bdi></a></th><td>12</td><td>0</td><td>en, de</td></tr>
<tr><th scope="row"><a href="h"><bdi>Hives</bdi></a> <small class="mark error">file cannot be used</small></th><td colspan="3"></td></tr></tbody></table></main>)html");
    EXPECT_EQ(blocksOf(startPage(languages_, languages_.front(), {}, {})),
              "<main id=\"refdoc-content\">\n<h1>Reference documentation</h1>"
              "\n<p>There is no product with full records.</p></main>");
}

} // namespace
} // namespace refdoc::site
