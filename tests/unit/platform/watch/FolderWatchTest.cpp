#include "platform/watch/FolderWatch.hpp"

#include "platform/system/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <string>
#include <utility>

namespace platform {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

using Paths = std::set<fs::path>;

void write(const fs::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

class FailingEvents final : public FolderEvents {
public:
    Outcome wait(const std::vector<fs::path>&, std::chrono::milliseconds) override {
        return Outcome::Failed;
    }
};

struct EventSource {
    std::string name;
    std::unique_ptr<FolderEvents> (*make)();

    friend void PrintTo(const EventSource& source, std::ostream* out) { *out << source.name; }
};

// Every change is found with the events of the system as well as without them.
class FolderWatchTest : public testing::TestWithParam<EventSource> {
protected:
    fs::path folder() const { return root_.path() / "docs"; }
    fs::path file(const std::string& name = "a.json") const { return folder() / name; }

    void SetUp() override {
        fs::create_directory(folder());
        write(file(), "first");
    }

    FolderWatch watch() const { return FolderWatch({folder()}, GetParam().make()); }

    // Returns the first changes; empty if there are none in a long time.
    static Paths nextChanges(FolderWatch& watch) {
        const auto end = std::chrono::steady_clock::now() + 20s;
        Paths changes;
        while (changes.empty() && std::chrono::steady_clock::now() < end)
            changes = watch.wait(100ms);
        return changes;
    }

    static Paths changesDuring(FolderWatch& watch, std::chrono::milliseconds time) {
        const auto end = std::chrono::steady_clock::now() + time;
        Paths changes;
        while (std::chrono::steady_clock::now() < end)
            changes.merge(watch.wait(100ms));
        return changes;
    }

private:
    TemporaryFolder root_{"docparser-watch-"};
};

TEST_P(FolderWatchTest, WithoutChangesThereIsNothing) {
    FolderWatch changes = watch();
    EXPECT_THAT(changesDuring(changes, 600ms), IsEmpty());
}

TEST_P(FolderWatchTest, FindsFileThatIsWrittenInPlace) {
    FolderWatch changes = watch();
    write(file(), "the second content");
    EXPECT_THAT(nextChanges(changes), ElementsAre(file()));
    EXPECT_THAT(changesDuring(changes, 600ms), IsEmpty());
}

TEST_P(FolderWatchTest, FindsFileThatIsReplacedByRenaming) {
    FolderWatch changes = watch();
    write(folder().parent_path() / "new", "the second content");
    fs::rename(folder().parent_path() / "new", file());
    EXPECT_THAT(nextChanges(changes), ElementsAre(file()));
}

TEST_P(FolderWatchTest, FindsFileThatIsAdded) {
    FolderWatch changes = watch();
    write(file("b.json"), "");
    EXPECT_THAT(nextChanges(changes), ElementsAre(file("b.json")));
}

TEST_P(FolderWatchTest, FindsFileThatIsRemoved) {
    FolderWatch changes = watch();
    fs::remove(file());
    EXPECT_THAT(nextChanges(changes), ElementsAre(file()));
}

TEST_P(FolderWatchTest, FindsAllFilesThatAreWrittenTogether) {
    FolderWatch changes = watch();
    write(file("b.json"), "b");
    write(file("c.json"), "c");
    fs::remove(file());
    EXPECT_THAT(nextChanges(changes), ElementsAre(file(), file("b.json"), file("c.json")));
}

TEST_P(FolderWatchTest, FindsFilesOfFolderThatIsReplaced) {
    FolderWatch changes = watch();
    EXPECT_THAT(changesDuring(changes, 300ms), IsEmpty());
    const fs::path other = folder().parent_path() / "other";
    fs::create_directory(other);
    write(other / "b.json", "b");
    fs::rename(folder(), folder().parent_path() / "old");
    fs::rename(other, folder());
    EXPECT_THAT(nextChanges(changes), ElementsAre(file(), file("b.json")));
    write(file("b.json"), "the second content");
    EXPECT_THAT(nextChanges(changes), ElementsAre(file("b.json")));
}

TEST_P(FolderWatchTest, FindsFilesOfFolderThatIsCreatedLater) {
    fs::remove_all(folder());
    FolderWatch changes = watch();
    EXPECT_THAT(changesDuring(changes, 300ms), IsEmpty());
    fs::create_directory(folder());
    write(file(), "first");
    EXPECT_THAT(nextChanges(changes), ElementsAre(file()));
}

TEST_P(FolderWatchTest, FoldersInTheFolderAreNotFollowed) {
    fs::create_directory(folder() / "deeper");
    FolderWatch changes = watch();
    write(folder() / "deeper/a.json", "a");
    EXPECT_THAT(changesDuring(changes, 600ms), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Sources, FolderWatchTest,
    testing::Values(EventSource{"SystemEvents", systemFolderEvents},
                    EventSource{"NoEvents", [] { return std::unique_ptr<FolderEvents>(); }},
                    EventSource{"EventsThatFail",
                                []() -> std::unique_ptr<FolderEvents> {
                                    return std::make_unique<FailingEvents>();
                                }}),
    [](const testing::TestParamInfo<EventSource>& source) { return source.param.name; });

} // namespace

} // namespace platform
