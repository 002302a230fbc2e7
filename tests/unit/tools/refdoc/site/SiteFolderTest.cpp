#include "tools/refdoc/site/SiteFolder.hpp"

#include "tests/support/TemporaryFolder.hpp"
#include "tools/refdoc/session/Parallel.hpp"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace refdoc::site {
namespace {

namespace fs = std::filesystem;

using Files = std::map<std::string, std::string>;
using Others = SiteFolder::Others;

class SiteFolderTest : public testing::Test {
protected:
    // The paths and contents of all files below a folder, and the paths of empty folders.
    static Files contentOf(const fs::path& folder) {
        Files files;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
            const std::string path = entry.path().lexically_relative(folder).generic_string();
            std::ifstream stream(entry.path(), std::ios::binary);
            if (!entry.is_directory())
                files[path] = {std::istreambuf_iterator<char>(stream), {}};
            else if (fs::is_empty(entry))
                files[path + '/'];
        }
        return files;
    }

    SiteChanges publish(const Files& files, Others others = Others::Refused) const {
        SiteFolder site(out_, others);
        for (const auto& [path, content] : files)
            site.add(path, content);
        return site.publish();
    }

    void expectRefusal(const std::string& message) const {
        try {
            const SiteFolder site(out_, Others::Refused);
            FAIL() << "no exception";
        } catch (const std::runtime_error& error) {
            EXPECT_EQ(error.what(), message);
        }
    }

    docparser_tests::TemporaryFolder folder_;
    fs::path out_ = folder_.path() / "out";
};

TEST_F(SiteFolderTest, CreatesTheFolderAndListsItsFiles) {
    out_ = folder_.path() / "new" / "out" / "";
    EXPECT_EQ(publish({{"index.html", "start"}, {"a/b/c.html", "c"}}), (SiteChanges{2, 0, 0}));
    EXPECT_EQ(contentOf(folder_.path()),
              (Files{{"new/out/.refdoc-site", "a/b/c.html\nindex.html\n"},
                     {"new/out/a/b/c.html", "c"},
                     {"new/out/index.html", "start"}}));
}

TEST_F(SiteFolderTest, FillsAnEmptyFolder) {
    fs::create_directory(out_);
    EXPECT_EQ(publish({{"a.html", "a"}}), (SiteChanges{1, 0, 0}));
    EXPECT_EQ(contentOf(folder_.path()),
              (Files{{"out/.refdoc-site", "a.html\n"}, {"out/a.html", "a"}}));
}

TEST_F(SiteFolderTest, ChangesOnlyFilesWithOtherContent) {
    publish({{"a.html", "a"}, {"b.html", "b"}, {"c/d.html", "d"}, {"c/e/f.html", "f"}});
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (const char* name : {"a.html", "b.html", "c/d.html"})
        fs::last_write_time(out_ / name, old);
    const auto oldOnDisk = fs::last_write_time(out_ / "a.html");

    EXPECT_EQ(publish({{"a.html", "a"}, {"b.html", "B"}, {"c/d.html", "d"}, {"g/h.html", "h"}}),
              (SiteChanges{2, 2, 1}));
    EXPECT_EQ(contentOf(folder_.path()),
              (Files{{"out/.refdoc-site", "a.html\nb.html\nc/d.html\ng/h.html\n"},
                     {"out/a.html", "a"},
                     {"out/b.html", "B"},
                     {"out/c/d.html", "d"},
                     {"out/g/h.html", "h"}}));
    EXPECT_EQ(fs::last_write_time(out_ / "a.html"), oldOnDisk);
    EXPECT_EQ(fs::last_write_time(out_ / "c/d.html"), oldOnDisk);
    EXPECT_NE(fs::last_write_time(out_ / "b.html"), oldOnDisk);
}

TEST_F(SiteFolderTest, AnUnchangedSiteIsNotTouched) {
    publish({{"a.html", "a"}});
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(out_ / ".refdoc-site", old);
    const auto oldOnDisk = fs::last_write_time(out_ / ".refdoc-site");
    EXPECT_EQ(publish({{"a.html", "a"}}), (SiteChanges{0, 1, 0}));
    EXPECT_EQ(fs::last_write_time(out_ / ".refdoc-site"), oldOnDisk);
}

TEST_F(SiteFolderTest, WithoutPublicationTheOldSiteStays) {
    publish({{"a.html", "a"}, {"b.html", "b"}});
    const Files before = contentOf(folder_.path());
    {
        SiteFolder site(out_, Others::Refused);
        site.add("a.html", "changed");
        site.add("c.html", "new");
    }
    EXPECT_EQ(contentOf(folder_.path()), before);
}

TEST_F(SiteFolderTest, FilesFromSeveralThreadsAreListedInOrder) {
    std::vector<std::string> paths;
    Files expected;
    for (int number = 0; number < 500; ++number) {
        paths.push_back(fmt::format("{}/{}.html", number % 7, number));
        expected[paths.back()] = "content of " + paths.back();
    }
    std::string list;
    for (const auto& [path, content] : expected)
        list += path + '\n';
    expected[".refdoc-site"] = list;
    for (const SiteChanges& changes : {SiteChanges{500, 0, 0}, SiteChanges{0, 500, 0}}) {
        SiteFolder site(out_, Others::Refused);
        forEachInParallel(paths.size(), [&](std::size_t number) {
            site.add(paths[number], "content of " + paths[number]);
        });
        EXPECT_EQ(site.publish(), changes);
        EXPECT_EQ(contentOf(out_), expected);
    }
}

TEST_F(SiteFolderTest, TheOrderInWhichFilesAreAddedChangesNothing) {
    publish({{"a.html", "a"}, {"b.html", "b"}});
    const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(out_ / ".refdoc-site", old);
    const auto oldOnDisk = fs::last_write_time(out_ / ".refdoc-site");
    SiteFolder site(out_, Others::Refused);
    site.add("b.html", "b");
    site.add("a.html", "a");
    EXPECT_EQ(site.publish(), (SiteChanges{0, 2, 0}));
    EXPECT_EQ(fs::last_write_time(out_ / ".refdoc-site"), oldOnDisk);
}

TEST_F(SiteFolderTest, ReplacedFileHasItsLastContent) {
    publish({{"same.html", "last"}, {"new.html", "first"}});
    SiteFolder site(out_, Others::Refused);
    for (const char* path : {"same.html", "new.html", "other.html"}) {
        site.add(path, "first");
        site.replace(path, "last");
    }
    EXPECT_EQ(site.publish(), (SiteChanges{2, 1, 0}));
    EXPECT_EQ(contentOf(out_), (Files{{".refdoc-site", "new.html\nother.html\nsame.html\n"},
                                      {"new.html", "last"},
                                      {"other.html", "last"},
                                      {"same.html", "last"}}));
}

TEST_F(SiteFolderTest, FoldersOfKilledRunsAreRemoved) {
    folder_.write(".refdoc-1/lock", "");
    folder_.write(".refdoc-1/site/a.html", "never published");
    folder_.write(".refdoc-2/mine.txt", "mine");
    folder_.write("other/lock", "");
    publish({{"b.html", "b"}});
    EXPECT_EQ(contentOf(folder_.path()), (Files{{".refdoc-2/mine.txt", "mine"},
                                                {"other/lock", ""},
                                                {"out/.refdoc-site", "b.html\n"},
                                                {"out/b.html", "b"}}));
}

TEST_F(SiteFolderTest, FilesOfOthersAreRefused) {
    folder_.write("out/notes/todo.txt", "mine");
    const std::string name = '"' + fs::canonical(out_).string() + '"';
    expectRefusal(name +
                  " contains \"notes/todo.txt\", which is not a file of a site; name another "
                  "folder, or keep such files with --force");
    EXPECT_EQ(contentOf(folder_.path()), (Files{{"out/notes/todo.txt", "mine"}}));
}

TEST_F(SiteFolderTest, FilesThatWereAddedToASiteAreRefused) {
    publish({{"a.html", "a"}});
    folder_.write("out/b.html", "mine");
    EXPECT_THROW(SiteFolder(out_, Others::Refused), std::runtime_error);
}

TEST_F(SiteFolderTest, FilesOfOthersCanBeKept) {
    folder_.write("out/a/todo.txt", "mine");
    publish({{"a/b.html", "b"}}, Others::Kept);
    EXPECT_EQ(publish({{"c.html", "c"}}, Others::Kept), (SiteChanges{1, 0, 1}));
    EXPECT_EQ(
        contentOf(folder_.path()),
        (Files{{"out/.refdoc-site", "c.html\n"}, {"out/a/todo.txt", "mine"}, {"out/c.html", "c"}}));
}

TEST_F(SiteFolderTest, AFileIsNoFolder) {
    folder_.write("out", "mine");
    expectRefusal('"' + out_.string() + "\" is not a folder");
}

TEST_F(SiteFolderTest, AFileCanBecomeAFolderAndAFolderAFile) {
    publish({{"a.html", "a"}, {"b.html/c.html", "c"}});
    EXPECT_EQ(publish({{"a.html/d.html", "d"}, {"b.html", "b"}}), (SiteChanges{2, 0, 2}));
    EXPECT_EQ(contentOf(out_), (Files{{".refdoc-site", "a.html/d.html\nb.html\n"},
                                      {"a.html/d.html", "d"},
                                      {"b.html", "b"}}));
}

} // namespace
} // namespace refdoc::site
