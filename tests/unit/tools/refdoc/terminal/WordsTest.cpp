#include "tools/refdoc/terminal/Words.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::alternatives;
using refdoc::pluralOf;
using refdoc::quoted;
using refdoc::typeText;
using reference::property::FunctionType;
using reference::property::RefEntityType;

TEST(WordsTest, ListsAlternatives) {
    EXPECT_EQ(alternatives({"a"}), "a");
    EXPECT_EQ(alternatives({"a", "b"}), "a or b");
    EXPECT_EQ(alternatives({"a", "b", "c"}), "a, b or c");
}

TEST(WordsTest, QuotesInUtf8) {
    EXPECT_EQ(quoted(u"木"), "\"木\"");
}

TEST(WordsTest, NamesTheFunctionTypeUnlessItIsTheDefaultOrTheEntityType) {
    EXPECT_EQ(typeText(RefEntityType::Class, FunctionType::Function), u"class");
    EXPECT_EQ(typeText(RefEntityType::Method, FunctionType::Static), u"static method");
    EXPECT_EQ(typeText(RefEntityType::Method, FunctionType::Method), u"method");
}

TEST(WordsTest, FormsThePluralOfTypes) {
    EXPECT_EQ(pluralOf(u"static method"), u"static methods");
    EXPECT_EQ(pluralOf(u"class"), u"classes");
    EXPECT_EQ(pluralOf(u"property"), u"properties");
}

} // namespace
} // namespace refdoc_tests
