#include "tools/refdoc/suggest/Suggestions.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::didYouMean;
using refdoc::nearFolders;

TEST(DidYouMeanTest, ListsTheNames) {
    using Names = std::vector<std::u16string>;
    EXPECT_EQ(didYouMean(Names{u"a"}), "; did you mean \"a\"?");
    EXPECT_EQ(didYouMean(Names{u"a", u"b"}), "; did you mean \"a\" or \"b\"?");
    EXPECT_EQ(didYouMean(Names{u"a", u"b", u"木"}), "; did you mean \"a\", \"b\" or \"木\"?");
    EXPECT_EQ(didYouMean(Names{}, "; see refdoc products"), "; see refdoc products");
    EXPECT_EQ(didYouMean(Names{}), "");
}

TEST(NearFoldersTest, FindsFoldersBesideTheMissingOne) {
    using Names = std::vector<std::u16string>;
    const docparser_tests::TemporaryFolder folder;
    folder.write("docCatalogs/file", "");
    folder.write("catalog/file", "");
    folder.write("docCatalo", "");
    EXPECT_EQ(nearFolders(folder.path() / "docCatalog"), Names{u"docCatalogs"});
    EXPECT_EQ(nearFolders(folder.path() / "samples"), Names{});
    EXPECT_EQ(nearFolders(folder.path() / "nowhere" / "docCatalog"), Names{});
}

TEST(DidYouMeanTest, FindsTheNearestKnownName) {
    EXPECT_EQ(didYouMean("smoth", {"soothe", "smooth"}), "; did you mean \"smooth\"?");
    EXPECT_EQ(didYouMean("zebra", {"soothe", "smooth"}), "");
}

} // namespace
} // namespace refdoc_tests
