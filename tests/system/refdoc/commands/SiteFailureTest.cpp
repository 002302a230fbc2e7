#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/interprocess/sync/file_lock.hpp>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace refdoc_tests {
namespace {

namespace fs = std::filesystem;

constexpr rlim_t kLargestFile = 256 * 1024;

// Limits the size of the files that the program can write, which acts like a disk that is full
// before the site is complete.
class SiteFailureTest : public RefdocTest {
protected:
    SiteFailureTest() {
        addOrchard("Join trees");
        EXPECT_EQ(run({"site", path("out")}).status, 0);
        before_ = files();
        addOrchard(std::string(kLargestFile, 'x'));
    }

    void addOrchard(const std::string& purpose) const {
        addResource("Orchard", section("orchard", R"({"href": "a.html", "refpurpose": "new"},
                                                     {"href": "b.html", "refpurpose": ")" +
                                                      purpose + "\"}"));
    }

    // All files below the test's folder except those of the root.
    std::map<std::string, std::string> files() const {
        std::map<std::string, std::string> files;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(path())) {
            const std::string name = entry.path().lexically_relative(path()).generic_string();
            if (entry.is_directory() || name.starts_with("help/"))
                continue;
            std::ifstream stream(entry.path(), std::ios::binary);
            files[name] = {std::istreambuf_iterator<char>(stream), {}};
        }
        return files;
    }

    // Returns the wait status of the program. The system sends it a signal when a file becomes too
    // large; without a handler, this kills it.
    int statusWithLimit(void (*onTooLarge)(int)) const {
        const pid_t child = ::fork();
        if (child == 0) {
            const rlimit fileSize{kLargestFile, kLargestFile};
            const rlimit noCore{0, 0};
            ::setrlimit(RLIMIT_FSIZE, &fileSize);
            ::setrlimit(RLIMIT_CORE, &noCore);
            std::signal(SIGXFSZ, onTooLarge);
            ::execl(REFDOC_PROGRAM, REFDOC_PROGRAM, "--install", path().c_str(), "site",
                    path("out").c_str(), nullptr);
            ::_exit(127);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return status;
    }

    std::map<std::string, std::string> before_;
};

TEST_F(SiteFailureTest, FullDiskLeavesOldSite) {
    const int status = statusWithLimit(SIG_IGN);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 3);
    EXPECT_EQ(files(), before_);
}

TEST_F(SiteFailureTest, KilledRunLeavesOldSiteAndNextRunCleansUp) {
    const int status = statusWithLimit(SIG_DFL);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGXFSZ);
    EXPECT_FALSE(files() == before_) << "no temporary folder";
    for (const auto& [name, content] : before_)
        EXPECT_EQ(files()[name], content) << name;

    addOrchard("Join trees");
    EXPECT_EQ(run({"site", path("out")}).status, 0);
    EXPECT_EQ(files(), before_);
}

TEST_F(SiteFailureTest, TemporaryFolderOfOtherRunStays) {
    addOrchard("Join trees");
    add(".refdoc-1/lock", "");
    boost::interprocess::file_lock lock(path(".refdoc-1/lock").c_str());
    lock.lock();
    EXPECT_EQ(run({"site", path("out")}).status, 0);
    before_.emplace(".refdoc-1/lock", "");
    EXPECT_EQ(files(), before_);
}

} // namespace
} // namespace refdoc_tests
