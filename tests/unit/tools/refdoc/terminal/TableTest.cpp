#include "tools/refdoc/terminal/Table.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace refdoc_tests {
namespace {

using namespace refdoc;
using Lines = std::vector<std::string>;

constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

TEST(TableTest, AlignsColumnsAndOmitsEmptyOnes) {
    Table table({u"Name", u"Default", u"Purpose"});
    table.addRow({{u"a"}, {u""}, {u"first"}});
    table.addRow({{u"longer"}, {u""}, {u""}});
    EXPECT_EQ(table.layOut(80, Table::Form::Wrapped, false),
              (Lines{"Name    Purpose", "a       first", "longer"}));
}

TEST(TableTest, WrapsCellsSideBySide) {
    Table table;
    table.addRow({{u"one two"}, {u"three four five"}});
    EXPECT_EQ(table.layOut(12, Table::Form::Wrapped, false),
              (Lines{"one    three", "two    four", "       five"}));
}

Cell purpose(std::u16string text) {
    return {.text = std::move(text), .mayBeCut = true};
}

TEST(TableTest, FoldedRowsAreCutBeforeTheyContinueOnASecondLine) {
    Table table;
    table.addRow({{u"name"}, purpose(u"a purpose of 29 columns, long"), {u"P"}, {u"href.html"}});
    table.addRow({{u"n"}, purpose(u"short"), {u"Product"}, {u"a"}});
    const auto layOut = [&](std::size_t width) {
        return table.layOut(width, Table::Form::Folded, false);
    };
    EXPECT_EQ(layOut(kUnlimited), layOut(55));
    EXPECT_EQ(layOut(55), (Lines{"name  a purpose of 29 columns, long  P        href.html",
                                 "n     short                          Product  a"}));
    EXPECT_EQ(layOut(46), (Lines{"name  a purpose of 29 col…  P        href.html",
                                 "n     short                 Product  a"}));
    EXPECT_EQ(layOut(45), (Lines{"name  a purpose of 29 columns, long  P", "    href.html",
                                 "n     short                          Product", "    a"}));
    EXPECT_EQ(layOut(35), (Lines{"name  a purpose of 29 col…  P", "    href.html",
                                 "n     short                 Product", "    a"}));
}

TEST(TableTest, LongNameFoldsOnlyItsOwnRow) {
    Table table;
    table.addRow({{u"a_name_of_20_columns"}, {u"function"}, purpose(u"text"), {u"P"}});
    table.addRow({{u"name"}, {u"class"}, purpose(u"another text"), {u"P"}});
    EXPECT_EQ(table.layOut(40, Table::Form::Folded, false),
              (Lines{"a_name_of_20_columns  function  text  P",
                     "name           class     another text  P"}));
}

TEST(TableTest, OnlyCellsThatMayBeCutAreCut) {
    Table table;
    table.addRow({{u"a/path/that/is/wider/than/the/line.html"}, purpose(std::u16string(60, u'x'))});
    EXPECT_EQ(
        table.layOut(30, Table::Form::Folded, false),
        (Lines{"a/path/that/is/wider/than/the/", "line.html", "    xxxxxxxxxxxxxxxxxxxxxxxxx…"}));
}

TEST(TableTest, FieldPerLineShowsTheTitlesOfFurtherColumns) {
    Table table({u"Name", u"Purpose", u"Default", u"Empty"});
    table.addRow({{u"x"}, {u"one two three"}, {u""}, {u""}});
    table.addRow({{u"y"}, {u""}, {u"4"}, {u""}});
    EXPECT_EQ(table.layOut(20, Table::Form::FieldPerLine, false),
              (Lines{"x", "    Purpose: one two", "    three", "y", "    Default: 4"}));
}

TEST(TableTest, FoldedTitlesStandAboveTheirColumns) {
    Table table({u"Name", u"Empty", u"File"});
    table.addRow({{u"Orchard"}, {u""}, {u"a/rather/long/path"}});
    EXPECT_EQ(table.layOut(22, Table::Form::Folded, false),
              (Lines{"Name", "    File", "Orchard", "    a/rather/long/path"}));
    EXPECT_EQ(table.layOut(40, Table::Form::Folded, false),
              (Lines{"Name     File", "Orchard  a/rather/long/path"}));
}

TEST(TableTest, HeadingsAreFoldedToo) {
    Table table;
    table.addHeading({{u"A product name"}, {u"a key"}});
    table.addRow({{u"a"}});
    EXPECT_EQ(table.layOut(18, Table::Form::Folded, false),
              (Lines{"A product name", "    a key", "  a"}));
}

TEST(TableTest, HeadingsAreNotAligned) {
    Table table;
    table.addHeading({{u"A rather long heading"}, {u"key"}});
    table.addRow({{u"a"}, {u"b"}});
    table.addHeading({{u"Next"}});
    table.addRow({{u"cc"}, {u"d"}});
    EXPECT_EQ(table.layOut(80, Table::Form::Wrapped, false),
              (Lines{"A rather long heading  key", "  a   b", "", "Next", "  cc  d"}));
}

TEST(TableTest, PaintHasNoWidth) {
    Table table;
    table.addRow({{u"a", Paint::Alarm}, {u"b"}});
    table.addRow({{u"木", Paint::Caution}, {u"c", Paint::Dim}});
    EXPECT_EQ(table.layOut(80, Table::Form::Wrapped, true),
              (Lines{"\x1b[31ma\x1b[0m   b", "\x1b[33m木\x1b[0m  \x1b[2mc\x1b[0m"}));
}

TEST(TableTest, SplitterPaintsPartsOfEachLineAfterItIsCut) {
    const LineSplitter splitter = [](std::string_view line) {
        return std::vector<LinePart>{{std::string(line.substr(0, 1)), false},
                                     {std::string(line.substr(1)), true}};
    };
    Table table;
    table.addRow({{std::u16string(30, u'a'), Paint::Dim, &splitter, /*mayBeCut=*/true}, {u"x"}});
    EXPECT_EQ(table.layOut(23, Table::Form::Folded, true),
              (Lines{"\x1b[2ma\x1b[0m\x1b[1m\x1b[4m" + std::string(18, 'a') + "…\x1b[0m  x"}));
    EXPECT_EQ(table.layOut(80, Table::Form::Folded, false), (Lines{std::string(30, 'a') + "  x"}));
}

TEST(TableTest, WithoutRowsNothingIsShown) {
    EXPECT_EQ(Table().layOut(80, Table::Form::Wrapped, false), Lines());
    EXPECT_EQ(Table({u"Name", u"Purpose"}).layOut(80, Table::Form::Wrapped, false), Lines());
}

TEST(TableTest, RowsMayBeShorterThanTheTitlesOrEmpty) {
    Table table({u"Name", u"Purpose"});
    table.addRow({});
    table.addRow({{u"a"}});
    EXPECT_EQ(table.layOut(80, Table::Form::Wrapped, false), (Lines{"Name", "a"}));
}

TEST(TableTest, LinesHaveNoTrailingSpaces) {
    Table table;
    table.addHeading({{u"Heading"}, {u""}});
    table.addRow({{u"a"}, {u""}});
    table.addRow({{u""}, {u"b"}});
    table.addRow({{u""}, {u""}});
    EXPECT_EQ(table.layOut(80, Table::Form::Wrapped, false),
              (Lines{"Heading", "  a", "     b", ""}));
}

} // namespace
} // namespace refdoc_tests
