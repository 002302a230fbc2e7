#include "docparser/discovery/InstalledProducts.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace reference::docparser {
namespace {

using docproduct::TopLevelDocProduct;
using testing::ElementsAre;
using testing::Pointee;

TopLevelDocProduct placeholderProduct(const std::string& shortName) {
    return {"testDisplayName",  "testHelpLocation", shortName, "testBaseCode",
            "testAltShortName", "testAvailability", {}};
}

TEST(MakeTestProducts, GivesEachNamePlaceholdersForTheOtherFields) {
    EXPECT_THAT(*makeTestProducts({u"vineyard", u"obst\u00e4"}),
                ElementsAre(Pointee(placeholderProduct("vineyard")),
                            Pointee(placeholderProduct("obst\xC3\xA4"))));
}

} // namespace
} // namespace reference::docparser
