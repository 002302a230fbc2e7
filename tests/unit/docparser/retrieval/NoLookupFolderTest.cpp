#include "docparser/discovery/ProductEnumeration.hpp"
#include "docparser/retrieval/LookupFiles.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <stdexcept>

namespace reference::docparser {
namespace {

using docparser_tests::TemporaryFolder;

// Changes the current folder during its life.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::filesystem::path& folder)
        : before_(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~WorkingFolder() { std::filesystem::current_path(before_); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path before_;
};

// Detects whether a folder, or a file in it, is opened during its life.
class FolderWatch {
public:
    explicit FolderWatch(const std::filesystem::path& folder)
        : events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        if (::inotify_add_watch(events_, folder.c_str(), IN_OPEN) == -1)
            throw std::runtime_error("cannot watch " + folder.string());
    }
    ~FolderWatch() { ::close(events_); }
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    bool hasSeenOpening() const {
        std::array<char, 4096> buffer;
        return ::read(events_, buffer.data(), buffer.size()) > 0;
    }

private:
    int events_;
};

// An empty path could be mistaken for the current folder, which has a lookup file here.
TEST(NoLookupFolder, ListsNoFolder) {
    const TemporaryFolder folder;
    folder.write("Orchard.json", "{}");
    const WorkingFolder working(folder.path());
    const FolderWatch watch(folder.path());

    const auto parse = [](auto&&...) -> LookupMap { throw std::logic_error("a file was parsed"); };
    const auto isInstalled = [](const std::u16string&) { return true; };
    EXPECT_EQ(collectLookupFiles(u"", parse, isInstalled, unobserved), LookupResults());
    EXPECT_FALSE(watch.hasSeenOpening());

    EXPECT_EQ(findProducts(u".", {}, u"_en", unobserved).jsonProducts.size(), 1U);
    EXPECT_TRUE(watch.hasSeenOpening()) << "the watch does not detect a listing";
}

} // namespace
} // namespace reference::docparser
