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
    EXPECT_EQ(table.layOut(80, Table::Overflow::Wrap, false),
              (Lines{"Name    Purpose", "a       first", "longer"}));
}

TEST(TableTest, WrapsCellsSideBySide) {
    Table table;
    table.addRow({{u"one two"}, {u"three four five"}});
    EXPECT_EQ(table.layOut(12, Table::Overflow::Wrap, false),
              (Lines{"one    three", "two    four", "       five"}));
}

TEST(TableTest, CutsCellsToOneLine) {
    Table table;
    table.addRow({{u"name"}, {u"a long purpose"}, {u"P"}});
    EXPECT_EQ(table.layOut(16, Table::Overflow::Cut, false), (Lines{"name  a long…  P"}));
    EXPECT_EQ(table.layOut(kUnlimited, Table::Overflow::Cut, false),
              (Lines{"name  a long purpose  P"}));
}

TEST(TableTest, HeadingsAreNotAligned) {
    Table table;
    table.addHeading({{u"A rather long heading"}, {u"key"}});
    table.addRow({{u"a"}, {u"b"}});
    table.addHeading({{u"Next"}});
    table.addRow({{u"cc"}, {u"d"}});
    EXPECT_EQ(table.layOut(80, Table::Overflow::Wrap, false),
              (Lines{"A rather long heading  key", "  a   b", "", "Next", "  cc  d"}));
}

TEST(TableTest, PaintHasNoWidth) {
    Table table;
    table.addRow({{u"a", Paint::Alarm}, {u"b"}});
    table.addRow({{u"木", Paint::Caution}, {u"c", Paint::Dim}});
    EXPECT_EQ(table.layOut(80, Table::Overflow::Wrap, true),
              (Lines{"\x1b[31ma\x1b[0m   b", "\x1b[33m木\x1b[0m  \x1b[2mc\x1b[0m"}));
}

TEST(TableTest, SplitterPaintsPartsOfEachLineAfterItIsCut) {
    const LineSplitter splitter = [](std::string_view line) {
        return std::vector<LinePart>{{std::string(line.substr(0, 1)), false},
                                     {std::string(line.substr(1)), true}};
    };
    Table table;
    table.addRow({{u"abcd", Paint::Dim, &splitter}, {u"x"}});
    EXPECT_EQ(table.layOut(5, Table::Overflow::Cut, true),
              (Lines{"\x1b[2ma\x1b[0m\x1b[1m\x1b[4m…\x1b[0m  x"}));
    EXPECT_EQ(table.layOut(80, Table::Overflow::Cut, false), (Lines{"abcd  x"}));
}

TEST(TableTest, WithoutRowsNothingIsShown) {
    EXPECT_EQ(Table().layOut(80, Table::Overflow::Wrap, false), Lines());
    EXPECT_EQ(Table({u"Name", u"Purpose"}).layOut(80, Table::Overflow::Wrap, false), Lines());
}

TEST(TableTest, RowsMayBeShorterThanTheTitlesOrEmpty) {
    Table table({u"Name", u"Purpose"});
    table.addRow({});
    table.addRow({{u"a"}});
    EXPECT_EQ(table.layOut(80, Table::Overflow::Wrap, false), (Lines{"Name", "a"}));
}

TEST(TableTest, LinesHaveNoTrailingSpaces) {
    Table table;
    table.addHeading({{u"Heading"}, {u""}});
    table.addRow({{u"a"}, {u""}});
    table.addRow({{u""}, {u"b"}});
    table.addRow({{u""}, {u""}});
    EXPECT_EQ(table.layOut(80, Table::Overflow::Wrap, false),
              (Lines{"Heading", "  a", "     b", ""}));
}

} // namespace
} // namespace refdoc_tests
