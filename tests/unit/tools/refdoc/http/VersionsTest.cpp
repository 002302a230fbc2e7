#include "tools/refdoc/http/Versions.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace refdoc::http {
namespace {

using namespace std::chrono_literals;

TEST(VersionsTest, WaitEndsWithTheNextVersion) {
    Versions versions;
    const std::int64_t first = versions.current();
    const std::jthread advance([&] { versions.advance(); });
    EXPECT_EQ(versions.waitForOther(first, 30s), first + 1);
    EXPECT_EQ(versions.current(), first + 1);
}

TEST(VersionsTest, WithoutNewVersionTheWaitEndsAfterItsTime) {
    const Versions versions;
    EXPECT_EQ(versions.waitForOther(versions.current(), 1ms), versions.current());
}

TEST(VersionsTest, OldVersionIsNotWaitedFor) {
    const Versions versions;
    EXPECT_EQ(versions.waitForOther(versions.current() - 1, 1h), versions.current());
}

} // namespace
} // namespace refdoc::http
