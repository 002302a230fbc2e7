#include "docparser/discovery/ProductData.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

namespace docparser_tests {
namespace {

using namespace reference::docparser;

template <class Record>
constexpr bool isCopiedButNeverAssigned =
    std::is_copy_constructible_v<Record>&& std::is_move_constructible_v<Record> &&
    !std::is_copy_assignable_v<Record> && !std::is_move_assignable_v<Record> &&
    !std::is_default_constructible_v<Record>;

static_assert(isCopiedButNeverAssigned<ProductData>);
static_assert(isCopiedButNeverAssigned<ProductPathData>);
static_assert(std::is_base_of_v<ProductData, ProductPathData>);
static_assert(!std::is_polymorphic_v<ProductData> && !std::is_polymorphic_v<ProductPathData>);

TEST(ProductData, KeepsNameAndFlag) {
    const ProductData translated(u"P_ja", true);
    EXPECT_EQ(translated.getName(), u"P_ja");
    EXPECT_TRUE(translated.isNonEnglishLocale());

    // The flag is not derived from the name.
    const ProductData english(u"P_ja", false);
    EXPECT_EQ(english.getName(), u"P_ja");
    EXPECT_FALSE(english.isNonEnglishLocale());
}

TEST(ProductPathData, KeepsTheFullPath) {
    const ProductPathData product(u"P", false, u"/folder/P.json");
    EXPECT_EQ(product.getName(), u"P");
    EXPECT_FALSE(product.isNonEnglishLocale());
    EXPECT_EQ(product.getFullPath(), u"/folder/P.json");
}

TEST(ProductPathData, KeepsItsValuesWhenItIsCopiedOrMoved) {
    ProductPathData source(u"P_ja", true, u"/folder/P_ja.json");
    const ProductPathData copy(source);
    const ProductPathData moved(std::move(source));
    for (const ProductPathData* record : {&copy, &moved, &std::as_const(source)}) {
        EXPECT_EQ(record->getName(), u"P_ja");
        EXPECT_TRUE(record->isNonEnglishLocale());
        EXPECT_EQ(record->getFullPath(), u"/folder/P_ja.json");
    }
}

TEST(ProductPathData, MovesTheStringsOfItsConstructor) {
    std::u16string name(100, u'n');
    std::u16string fullPath(100, u'p');
    const char16_t* const nameCharacters = name.data();
    const char16_t* const pathCharacters = fullPath.data();
    const ProductPathData product(std::move(name), false, std::move(fullPath));
    EXPECT_EQ(product.getName().data(), nameCharacters);
    EXPECT_EQ(product.getFullPath().data(), pathCharacters);
}

} // namespace
} // namespace docparser_tests
