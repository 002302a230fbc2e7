#include "platform/docproduct/TopLevelDocProduct.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <string>

namespace docproduct {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TopLevelDocProduct named(std::string shortName) {
    return TopLevelDocProduct("", "", std::move(shortName), "", "", "", {});
}

TEST(TopLevelDocProductTest, KeepsEachArgument) {
    const TopLevelDocProduct made("display", "help", "short", "base", "alt", "availability",
                                  {ProductFamily("trees"), ProductFamily("shrubs")});
    EXPECT_EQ(made.getDisplayName(), "display");
    EXPECT_EQ(made.getHelpLocation(), "help");
    EXPECT_EQ(made.getShortName(), "short");
    EXPECT_EQ(made.getBaseCode(), "base");
    EXPECT_EQ(made.getAltShortName(), "alt");
    EXPECT_EQ(made.getAvailability(), "availability");
    EXPECT_THAT(made.getFamilies(), ElementsAre(ProductFamily("trees"), ProductFamily("shrubs")));
    EXPECT_EQ(made.getFamilies().front().getName(), "trees");
}

TEST(TopLevelDocProductTest, EqualsAProductOfTheSameStrings) {
    EXPECT_EQ(named("orchard"), named("orchard"));
    EXPECT_FALSE(named("orchard") == named("Orchard"));
    EXPECT_THAT(named("orchard").getFamilies(), IsEmpty());
}

TEST(TopLevelDocProductTest, MayHaveOnlyAShortName) {
    EXPECT_EQ(TopLevelDocProduct::fromShortName("orchard"),
              TopLevelDocProduct("", "", "orchard", "", "", "", {}));
}

TEST(TopLevelDocProductTest, DiffersIfAnyStringOrFamilyDiffers) {
    const auto make = [](std::size_t other, const char* family) {
        std::array<std::string, 6> strings;
        if (other < strings.size())
            strings[other] = "other";
        return TopLevelDocProduct(strings[0], strings[1], strings[2], strings[3], strings[4],
                                  strings[5], {ProductFamily(family)});
    };
    const TopLevelDocProduct made = make(6, "trees");
    EXPECT_EQ(made, make(6, "trees"));
    for (std::size_t field = 0; field < 6; ++field)
        EXPECT_FALSE(made == make(field, "trees")) << "string " << field;
    EXPECT_FALSE(made == make(6, "shrubs"));
}

} // namespace
} // namespace docproduct
