#include "tools/refdoc/session/SupportFolder.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/system/NativePath.hpp"

#include <gtest/gtest.h>

#include <system_error>

namespace refdoc_tests {
namespace {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::LoadAccount;

class SupportFolderTest : public testing::Test {
protected:
    void SetUp() override { DocResourceParser::setReferenceRoot(u"/no/such/root"); }
    void TearDown() override { DocResourceParser::restoreDefaultSettings(); }
};

TEST_F(SupportFolderTest, NoPathBelowADisabledFolderReachesTheSystem) {
    refdoc::disableSupportFolder();
    EXPECT_EQ(refdoc::supportFolder(), u"");
    EXPECT_THROW(platform::toNativePath(*DocResourceParser::getSupportPackageRoot() + u"/P.json"),
                 std::system_error);
}

TEST_F(SupportFolderTest, AnotherFolderIsReturnedUnchanged) {
    DocResourceParser::setSupportPackageRoot(u"support");
    EXPECT_EQ(refdoc::supportFolder(), u"support");
}

TEST_F(SupportFolderTest, OnlyTheFilesOfADisabledFolderAreRemovedFromAnAccount) {
    refdoc::disableSupportFolder();
    LoadAccount account;
    const LoadAccount::Scope scope(account);
    EXPECT_THROW(DocResourceParser::getResourceFile(u"P"), DocParserException);
    ASSERT_EQ(account.files.size(), 2U);
    const std::u16string reference = account.files.front().path;
    refdoc::removeDisabledFolder(account);
    ASSERT_EQ(account.files.size(), 1U);
    EXPECT_EQ(account.files.front().path, reference);
}

} // namespace
} // namespace refdoc_tests
