#include "docparser/Version.hpp"

#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

using reference::docparser::Version;
using reference::docparser::version;

TEST(VersionTest, LibraryHasTheVersionOfItsHeaders) {
    EXPECT_EQ(version(),
              (Version{DOCPARSER_VERSION_MAJOR, DOCPARSER_VERSION_MINOR, DOCPARSER_VERSION_PATCH}));
    EXPECT_EQ(DOCPARSER_VERSION_NUMBER,
              version().major * 10000 + version().minor * 100 + version().patch);
}

TEST(VersionTest, VersionsAreOrdered) {
    EXPECT_LT((Version{1, 2, 3}), (Version{1, 10, 0}));
    EXPECT_GT((Version{2, 0, 0}), (Version{1, 10, 9}));
}

} // namespace
} // namespace docparser_tests
