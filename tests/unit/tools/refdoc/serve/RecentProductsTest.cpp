#include "tools/refdoc/serve/RecentProducts.hpp"

#include <gtest/gtest.h>

namespace refdoc::serve {
namespace {

TEST(RecentProductsTest, KeepsTheProductsThatWereUsedLast) {
    RecentProducts products(2);
    const auto cellar = std::make_shared<const site::Product>();
    const auto orchard = std::make_shared<const site::Product>();
    const auto press = std::make_shared<const site::Product>();
    products.add(u"Cellar", cellar);
    products.add(u"Orchard", orchard);
    EXPECT_EQ(products.find(u"Cellar"), cellar);
    products.add(u"Press", press);
    EXPECT_EQ(products.find(u"Cellar"), cellar);
    EXPECT_EQ(products.find(u"Press"), press);
    EXPECT_EQ(products.find(u"Orchard"), nullptr);
}

TEST(RecentProductsTest, RemovedProductIsNotFound) {
    RecentProducts products(2);
    products.add(u"Cellar", std::make_shared<const site::Product>());
    products.add(u"Orchard", std::make_shared<const site::Product>());
    products.remove(u"Cellar");
    EXPECT_EQ(products.find(u"Cellar"), nullptr);
    EXPECT_NE(products.find(u"Orchard"), nullptr);
}

} // namespace
} // namespace refdoc::serve
