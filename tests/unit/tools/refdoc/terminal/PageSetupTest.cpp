#include "tools/refdoc/terminal/PageSetup.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace refdoc_tests {
namespace {

using namespace refdoc;

constexpr platform::OutputDevice kFile{};
constexpr platform::OutputDevice kTerminal{.isTerminal = true, .columns = 132};
constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

TEST(PageSetupTest, ColorDependsOnChoiceThenEnvironmentThenDevice) {
    LayoutEnvironment noColor;
    noColor.noColor = "1";
    LayoutEnvironment emptyNoColor;
    emptyNoColor.noColor = "";
    LayoutEnvironment dumb;
    dumb.term = "dumb";
    EXPECT_TRUE(choosePageSetup(ColorChoice::Auto, kTerminal, {}).color);
    EXPECT_TRUE(choosePageSetup(ColorChoice::Auto, kTerminal, emptyNoColor).color);
    EXPECT_FALSE(choosePageSetup(ColorChoice::Auto, kTerminal, noColor).color);
    EXPECT_FALSE(choosePageSetup(ColorChoice::Auto, kTerminal, dumb).color);
    EXPECT_FALSE(choosePageSetup(ColorChoice::Auto, kFile, {}).color);
    EXPECT_TRUE(choosePageSetup(ColorChoice::Always, kFile, noColor).color);
    EXPECT_FALSE(choosePageSetup(ColorChoice::Never, kTerminal, {}).color);
}

TEST(PageSetupTest, WidthIsColumnsOrTheTerminalsOr80) {
    const auto widths = [](const platform::OutputDevice& device, const char* columns) {
        LayoutEnvironment environment;
        if (columns)
            environment.columns = columns;
        const PageSetup setup = choosePageSetup(ColorChoice::Never, device, environment);
        return std::pair(setup.textWidth, setup.lineWidth);
    };
    EXPECT_EQ(widths(kFile, nullptr), std::pair(std::size_t{80}, kUnlimited));
    EXPECT_EQ(widths(kFile, "60"), std::pair(std::size_t{60}, kUnlimited));
    EXPECT_EQ(widths(kTerminal, nullptr), std::pair(std::size_t{100}, std::size_t{132}));
    EXPECT_EQ(widths(kTerminal, "20"), std::pair(std::size_t{20}, std::size_t{20}));
    EXPECT_EQ(widths(kTerminal, "10"), std::pair(std::size_t{20}, std::size_t{10}));
    for (const char* nonsense : {"", "0", "-5", "wide", "80x", " 60", "99999999999999999999999"})
        EXPECT_EQ(widths(kTerminal, nonsense), std::pair(std::size_t{100}, std::size_t{132}))
            << nonsense;
    EXPECT_EQ(widths({.isTerminal = true, .columns = 0}, nullptr),
              std::pair(std::size_t{80}, std::size_t{80}));
}

} // namespace
} // namespace refdoc_tests
