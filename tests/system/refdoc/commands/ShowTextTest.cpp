#include "tests/system/refdoc/RefdocTest.hpp"
#include "tests/system/refdoc/commands/FullProduct.hpp"

#include <algorithm>

namespace refdoc_tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class ShowTextTest : public RefdocTest {
protected:
    std::string show(const std::string& item, const Surroundings& surroundings = {}) const {
        addResource("P", section("p", item));
        return run({"show", "P"}, surroundings).out;
    }
};

TEST_F(ShowTextTest, LaysOutAllFieldsOfAnItem) {
    addResource("Orchard", kFullProduct);
    EXPECT_EQ(run({"show", "Orchard"}).out, R"(Orchard
=======
help folder    orchard
base code      OR
help location  help/or
format         referenceapi 2.1

graft (class, constructor method), join (function)
--------------------------------------------------
  DISCOURAGED: not recommended for new work
  Join two trees
  link        graft.html
  package     orchard.trees
  introduced  1.2
  picture     graft.png
  shows       Two trees

  Joins the scion to the rootstock and waits until both have grown together,
  which takes about a year.
  Both stay alive.

  Syntax: Join
    t = graft(a, b)
    t = graft(a, b, way: w)

  Syntax (command)
    graft a b

  Inputs
    Name  Purpose                                 Syntax    Default  Values
    a     Rootstock                               function
    b     Scion                                   command
    way*  How to cut, which depends on how thick  function  whip     whip, cleft
          both are
    * given as a pair of name and value

  Inputs: More
    Name  Purpose
    wax   Seal

  Outputs
    Name  Purpose  Values
    t     Tree     alive, dead

  Parameters
    Name  Purpose      Default
    sun   Hours a day  6

  Properties: Look
    Name    Purpose  Default
    Height  In m     1

  Properties
    Name  Purpose
    Age   In years

  Examples
    A first tree
      open with  orchard demo first
      link       ex/first.html

  See also
    prune   prune.html
    sowing  sow.html
)");
}

TEST_F(ShowTextTest, EmptyLinesSeparateSectionsAndItems) {
    addResource("P", section("p",
                             R"({"href": "a.html", "refpurpose": "one"},
                                {"href": "b.html", "refpurpose": "two"})",
                             R"(, "supportPackages": [)" + section("q", "") + "]"));
    EXPECT_EQ(run({"show", "P"}).out, R"(p name
======
help folder    p
base code      p code
help location  p/help

a.html
------
  one
  link  a.html

b.html
------
  two
  link  b.html

q name
======
help folder    q
base code      q code
help location  q/help
)");
}

TEST_F(ShowTextTest, EmptyGroupsAreOnlyHeadings) {
    EXPECT_THAT(show(R"({"href": "a", "refpurpose": "b",
                         "syntaxgroup": [{"title": "How", "syntax": []}],
                         "inputgroup": [{"title": "Rest", "inputs": []}],
                         "classpropertygroup": [{"title": "Look", "classproperty": []}]})"),
                HasSubstr("  link  a\n\n  Syntax: How\n\n  Inputs: Rest\n\n  Properties: Look\n"));
}

TEST_F(ShowTextTest, EmptyTextsShowOnlyHeadings) {
    EXPECT_THAT(show(R"({"href": "", "refpurpose": "", "packagename": "", "description": "",
                         "refentity": [{"type": "class", "name": ""}],
                         "outputs": [{"name": "", "purpose": "", "htmlid": ""}],
                         "seealso": [{"url": "", "name": ""}],
                         "examples": [{"url": "", "open_command": "", "title": ""}]})"),
                HasSubstr("\n\n(class)\n-------\n\n  Outputs\n\n  Examples\n\n  See also\n"));
}

TEST_F(ShowTextTest, MarksDeprecation) {
    const auto shown = [&](const std::string& status) {
        return show(R"({"href": "a", "refpurpose": "b", "deprecationstatus": ")" + status + "\"}");
    };
    EXPECT_THAT(shown("none"), HasSubstr("-\n  b\n"));
    EXPECT_THAT(shown("discouraged"),
                HasSubstr("-\n  DISCOURAGED: not recommended for new work\n"));
    EXPECT_THAT(shown("deprecated"),
                HasSubstr("-\n  DEPRECATED: to be removed in a later release\n"));
    EXPECT_THAT(shown("removed"), HasSubstr("-\n  REMOVED: no longer in the product\n"));
}

std::size_t longestLine(const std::string& text) {
    std::size_t longest = 0;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        longest = std::max(longest, end - start);
        start = end + 1;
    }
    return longest;
}

TEST_F(ShowTextTest, WrapsAtTheWidthOfColumnsBetween40And100) {
    std::string words;
    for (int count = 0; count < 60; ++count)
        words += "word ";
    const std::string item = R"({"href": "a", "refpurpose": "b", "description": ")" + words + "\"}";
    const auto widthWith = [&](const std::string& columns) {
        return longestLine(show(item, {.variables = {{"COLUMNS", columns}}}));
    };
    EXPECT_EQ(longestLine(show(item)), 2 + 15 * 5 - 1u);
    EXPECT_EQ(widthWith("60"), 2 + 11 * 5 - 1u);
    EXPECT_EQ(widthWith("1"), 2 + 7 * 5 - 1u);
    EXPECT_EQ(widthWith("1000"), 2 + 19 * 5 - 1u);
    EXPECT_EQ(widthWith("many"), 2 + 15 * 5 - 1u);
    EXPECT_EQ(widthWith(""), 2 + 15 * 5 - 1u);
}

TEST_F(ShowTextTest, WideCharactersFillTwoColumns) {
    const std::string out = show(R"json({"href": "a", "refpurpose": "b",
        "refentity": [{"type": "component", "name": "c"}],
        "inputs": [{"name": "木", "purpose": "接ぎ木をするための台木", "htmlid": "x", "defaultvalue": "1"},
                   {"name": "é", "purpose": "plain", "htmlid": "x", "defaultvalue": "2"}]})json");
    EXPECT_THAT(out, HasSubstr("    Name  Purpose                 Default\n"
                               "    木    接ぎ木をするための台木  1\n"
                               "    é     plain                   2\n"));
}

TEST_F(ShowTextTest, WideTextIsWrappedBetweenCharacters) {
    const std::string out = show(
        R"({"href": "a", "refpurpose": "接木は二本の木をつなぎ、ともに育てる古くからのわざです。"})",
        {.variables = {{"COLUMNS", "40"}}});
    EXPECT_THAT(out, HasSubstr("  接木は二本の木をつなぎ、ともに育てる古\n"
                               "  くからのわざです。\n"));
}

TEST_F(ShowTextTest, ControlCharactersNeverReachTheOutput) {
    const std::string evil = R"(\u001b[31mred\u0007\u009b2J\r)";
    const std::string out =
        show(R"({"href": "a", "refpurpose": ")" + evil + R"(", "packagename": ")" + evil +
             R"(", "description": ")" + evil + R"(", "syntaxgroup": [{"title": ")" + evil +
             R"(", "syntax": [")" + evil + R"("]}], "inputs": [{"name": ")" + evil +
             R"(", "purpose": ")" + evil + R"(", "htmlid": "x", "value": [")" + evil +
             R"("]}], "seealso": [{"url": ")" + evil + R"(", "name": ")" + evil +
             R"("}], "refentity": [{"type": "class", "name": ")" + evil + R"("}]})");
    EXPECT_THAT(out, HasSubstr("␛[31mred␇\xef\xbf\xbd"
                               "2J␍"));
    for (const char control : {'\x1b', '\x07', '\r', '\x7f'})
        EXPECT_EQ(out.find(control), out.npos) << int{control};
    EXPECT_THAT(out, Not(HasSubstr("\xc2\x9b")));
}

TEST_F(ShowTextTest, DescriptionKeepsItsLines) {
    const std::string out =
        show(R"({"href": "a", "refpurpose": "b", "description": "one\r\n\n  two\tthree"})");
    EXPECT_THAT(out, HasSubstr("\n  one\n\n  two three\n"));
}

TEST_F(ShowTextTest, LongNamesAreBroken) {
    const std::string name(300, 'n');
    const std::string out = show(R"({"href": "a", "refpurpose": "b", "outputs": [{"name": ")" +
                                 name + R"(", "purpose": "p", "htmlid": "x"}]})");
    EXPECT_EQ(longestLine(out), 80u);
    EXPECT_GE(std::ranges::count(out, 'n'), 300);
}

} // namespace
} // namespace refdoc_tests
