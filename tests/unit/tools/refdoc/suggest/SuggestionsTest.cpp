#include "tools/refdoc/suggest/Suggestions.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::didYouMean;

TEST(DidYouMeanTest, ListsTheNames) {
    using Names = std::vector<std::u16string>;
    EXPECT_EQ(didYouMean(Names{u"a"}), "; did you mean \"a\"?");
    EXPECT_EQ(didYouMean(Names{u"a", u"b"}), "; did you mean \"a\" or \"b\"?");
    EXPECT_EQ(didYouMean(Names{u"a", u"b", u"木"}), "; did you mean \"a\", \"b\" or \"木\"?");
    EXPECT_EQ(didYouMean(Names{}, "; see refdoc products"), "; see refdoc products");
    EXPECT_EQ(didYouMean(Names{}), "");
}

TEST(DidYouMeanTest, FindsTheNearestKnownName) {
    EXPECT_EQ(didYouMean("smoth", {"soothe", "smooth"}), "; did you mean \"smooth\"?");
    EXPECT_EQ(didYouMean("zebra", {"soothe", "smooth"}), "");
}

TEST(OnlyNearestNameTest, IsTheOneThatIsNearerThanAllOthers) {
    using refdoc::onlyNearestName;
    EXPECT_EQ(onlyNearestName("smoth", {"soothe", "smooth"}), "smooth");
    EXPECT_EQ(onlyNearestName("Smooth", {"smooth", "smooths"}), "smooth");
    EXPECT_EQ(onlyNearestName("zebra", {"soothe", "smooth"}), std::nullopt);
    EXPECT_EQ(onlyNearestName("smoot", {"smooth", "smooty"}), std::nullopt);
    EXPECT_EQ(onlyNearestName("smooth", {}), std::nullopt);
}

} // namespace
} // namespace refdoc_tests
