#include "tools/refdoc/check/fix/FileChange.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace refdoc::check {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::Pair;

class FileChangeTest : public testing::Test {
protected:
    FileChangeTest() { std::ofstream(file_, std::ios::binary) << "old"; }

    // The names and contents in the folder; of a folder, its name with a slash.
    std::map<std::string, std::string> content() const {
        std::map<std::string, std::string> files;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_.path())) {
            std::ifstream stream(entry.path(), std::ios::binary);
            std::string name = entry.path().filename().string();
            if (entry.is_directory())
                files[name + '/'];
            else
                files[name] = {std::istreambuf_iterator<char>(stream), {}};
        }
        return files;
    }

    docparser_tests::TemporaryFolder folder_;
    fs::path file_ = folder_.path() / "A.JSON";
    fs::path newFile_ = folder_.path() / "B.json";
};

TEST_F(FileChangeTest, WritesNewContentUnchanged) {
    write({file_, file_, "old", std::string("new\r\n\0\n", 7), 1});
    EXPECT_THAT(content(), ElementsAre(Pair("A.JSON", std::string("new\r\n\0\n", 7))));
}

TEST_F(FileChangeTest, RenamesWithoutWriting) {
    const auto time = fs::last_write_time(file_);
    write({file_, newFile_, "old", "old", 1});
    EXPECT_THAT(content(), ElementsAre(Pair("B.json", "old")));
    EXPECT_EQ(fs::last_write_time(newFile_), time);
}

TEST_F(FileChangeTest, WritesAndRenames) {
    write({file_, newFile_, "old", "new", 2});
    EXPECT_THAT(content(), ElementsAre(Pair("B.json", "new")));
}

TEST_F(FileChangeTest, FailureLeavesTheOriginalAndNothingElse) {
    // The content can't take the place of a folder.
    fs::create_directory(newFile_);
    EXPECT_THROW(write({newFile_, newFile_, "old", "new", 1}), fs::filesystem_error);
    EXPECT_THROW(write({file_, folder_.path() / "missing" / "B.json", "old", "old", 1}),
                 fs::filesystem_error);
    EXPECT_THAT(content(), ElementsAre(Pair("A.JSON", "old"), Pair("B.json/", "")));
}

#ifndef _WIN32
TEST_F(FileChangeTest, KeepsPermissions) {
    for (const fs::perms permissions : {fs::perms(0640), fs::perms(0755), fs::perms(0400)}) {
        fs::permissions(file_, permissions);
        write({file_, file_, "old", "new", 1});
        EXPECT_EQ(fs::status(file_).permissions(), permissions);
    }
}
#endif

} // namespace
} // namespace refdoc::check
