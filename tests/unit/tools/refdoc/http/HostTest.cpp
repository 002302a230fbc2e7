#include "tools/refdoc/http/Host.hpp"

#include <gtest/gtest.h>

#include <string>

namespace refdoc::http {
namespace {

constexpr int kPort = 8400;

struct HostCase {
    std::string header;
    std::string address;
    bool isOwn;
};

TEST(HostTest, HeaderNamesTheServerByItsAddressOrAsThisMachine) {
    const HostCase cases[] = {
        {"127.0.0.1", "127.0.0.1", true},
        {"127.0.0.1:8400", "127.0.0.1", true},
        {"localhost", "127.0.0.1", true},
        {"LocalHost:8400", "127.0.0.1", true},
        {"[::1]:8400", "127.0.0.1", true},
        {"127.0.0.2", "127.0.0.1", true},
        {"127.0.0.1:8401", "127.0.0.1", false},
        {"[::1]:8401", "127.0.0.1", false},
        {"127.0.0.1:", "127.0.0.1", false},
        {"127.0.0.1:8400:8400", "127.0.0.1", false},
        {"127.0.0.1.", "127.0.0.1", false},
        {"127.0.0.1.example.org", "127.0.0.1", false},
        {"localhost.example.org", "127.0.0.1", false},
        {"example.org", "127.0.0.1", false},
        {"192.0.2.1", "127.0.0.1", false},
        {"0.0.0.0", "127.0.0.1", false},
        {"[::]", "127.0.0.1", false},
        {"", "127.0.0.1", false},
        {"192.0.2.1:8400", "192.0.2.1", true},
        {"192.0.2.2:8400", "192.0.2.1", false},
        {"[2001:db8::1]:8400", "2001:db8::1", true},
        {"[2001:db8::2]:8400", "2001:db8::1", false},
        {"Desk.example:8400", "desk.example", true},
        {"other.example:8400", "desk.example", false},
        {"192.0.2.1:8400", "0.0.0.0", true},
        {"[2001:db8::1]", "::", true},
        {"example.org:8400", "0.0.0.0", false},
        {"desk:8400", "::", false},
    };
    for (const HostCase& test : cases)
        EXPECT_EQ(isOwnHost(test.header, test.address, kPort), test.isOwn)
            << test.header << " at " << test.address;
}

TEST(HostTest, HostOfUrlCanBeOpened) {
    EXPECT_EQ(urlHost("127.0.0.1"), "127.0.0.1");
    EXPECT_EQ(urlHost("::1"), "[::1]");
    EXPECT_EQ(urlHost("desk.example"), "desk.example");
    EXPECT_EQ(urlHost("0.0.0.0"), "127.0.0.1");
    EXPECT_EQ(urlHost("::"), "[::1]");
}

TEST(HostTest, LoopbackAddressesReachThisMachineOnly) {
    for (const std::string address : {"127.0.0.1", "127.1.2.3", "::1", "localhost", "LOCALHOST"})
        EXPECT_TRUE(isLoopback(address)) << address;
    for (const std::string address : {"0.0.0.0", "::", "192.0.2.1", "desk.example", ""})
        EXPECT_FALSE(isLoopback(address)) << address;
}

} // namespace
} // namespace refdoc::http
