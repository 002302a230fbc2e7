#include "platform/terminal/Pager.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace docparser_tests {
namespace {

using platform::isProgramInstalled;
using platform::showThroughPager;

std::string readFile(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(stream), {}};
}

TEST(PagerTest, PassesTheWholeTextToStandardInput) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "copy").string();
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    EXPECT_TRUE(showThroughPager("cat > '" + file + "'", text));
    EXPECT_EQ(readFile(file), text);
}

TEST(PagerTest, SucceedsIfTheCommandReadsNothing) {
    EXPECT_TRUE(showThroughPager("true", std::string(1'000'000, 'x')));
    EXPECT_TRUE(showThroughPager("exit 3", "x"));
    EXPECT_TRUE(showThroughPager("kill -TERM $$", "x"));
}

TEST(PagerTest, FailsIfTheCommandCannotBeRun) {
    EXPECT_FALSE(showThroughPager("/nowhere/pager 2>/dev/null", "x"));
    EXPECT_FALSE(showThroughPager("/ 2>/dev/null", "x"));
}

TEST(PagerTest, FailsIfNoFileDescriptorIsLeft) {
    struct rlimit before {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    struct rlimit none = before;
    none.rlim_cur = 0;
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const bool isShown = showThroughPager("true", "x");
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_FALSE(isShown);
}

TEST(PagerTest, RestoresTheHandlingOfSignals) {
    struct sigaction before {};
    ASSERT_EQ(sigaction(SIGINT, nullptr, &before), 0);
    EXPECT_TRUE(showThroughPager("true", "x"));
    struct sigaction after {};
    ASSERT_EQ(sigaction(SIGINT, nullptr, &after), 0);
    EXPECT_EQ(after.sa_handler, before.sa_handler);
}

TEST(PagerTest, FindsProgramsInTheFoldersOfPath) {
    EXPECT_TRUE(isProgramInstalled("sh"));
    EXPECT_FALSE(isProgramInstalled("no-program-has-this-name"));
}

} // namespace
} // namespace docparser_tests
