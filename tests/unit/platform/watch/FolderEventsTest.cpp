#include "platform/watch/FolderEvents.hpp"

#include "platform/system/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>

namespace platform {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Outcome = FolderEvents::Outcome;

class FolderEventsTest : public testing::Test {
protected:
    fs::path folder() const { return root_.path() / "docs"; }

    void SetUp() override {
        fs::create_directory(folder());
        ASSERT_NE(events_, nullptr);
    }

    Outcome waitBriefly() { return events_->wait({folder()}, 0ms); }

    void waitUntilQuiet() {
        for (int calls = 0; waitBriefly() == Outcome::Happened; ++calls)
            ASSERT_LT(calls, 10);
    }

private:
    TemporaryFolder root_{"docparser-events-"};
    std::unique_ptr<FolderEvents> events_ = systemFolderEvents();
};

TEST_F(FolderEventsTest, ReportsOnceThatFolderWasNotWatchedBefore) {
    EXPECT_EQ(waitBriefly(), Outcome::Happened);
    EXPECT_EQ(waitBriefly(), Outcome::Nothing);
}

TEST_F(FolderEventsTest, ReportsEachChangeOnce) {
    waitUntilQuiet();
    std::ofstream(folder() / "a.json") << "a";
    EXPECT_EQ(waitBriefly(), Outcome::Happened);
    EXPECT_EQ(waitBriefly(), Outcome::Nothing);
}

TEST_F(FolderEventsTest, WatchesFolderThatReplacesAnother) {
    waitUntilQuiet();
    const fs::path old = folder().parent_path() / "old";
    fs::rename(folder(), old);
    fs::create_directory(folder());
    waitUntilQuiet();
    std::ofstream(old / "a.json") << "a";
    EXPECT_EQ(waitBriefly(), Outcome::Nothing);
    std::ofstream(folder() / "a.json") << "a";
    EXPECT_EQ(waitBriefly(), Outcome::Happened);
}

TEST_F(FolderEventsTest, WatchesFolderThatIsCreatedLater) {
    fs::remove(folder());
    waitUntilQuiet();
    fs::create_directory(folder());
    EXPECT_EQ(waitBriefly(), Outcome::Happened);
    waitUntilQuiet();
    std::ofstream(folder() / "a.json") << "a";
    EXPECT_EQ(waitBriefly(), Outcome::Happened);
}

} // namespace

} // namespace platform
