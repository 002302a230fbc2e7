#include "tools/refdoc/check/FileGroups.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace refdoc::check {
namespace {

using reference::docparser::FileAccount;
using reference::docparser::FileRole;

FileAccount file(FileRole role, bool isTranslation, const std::vector<std::u16string>& sections) {
    FileAccount account;
    account.role = role;
    account.isTranslation = isTranslation;
    for (const std::u16string& key : sections)
        account.sections.emplace_back().key = key;
    return account;
}

std::vector<std::vector<std::u16string>> pathsIn(const std::vector<FileGroup>& groups) {
    std::vector<std::vector<std::u16string>> paths;
    for (const FileGroup& group : groups) {
        paths.emplace_back();
        for (const auto* checked : group)
            paths.back().push_back(checked->first.path);
    }
    return paths;
}

TEST(FileGroupsTest, FilesWithoutACommonSectionAreApart) {
    const CheckedFiles files{{{u"a"}, file(FileRole::Resources, false, {u"one"})},
                             {{u"b"}, file(FileRole::Lookup, false, {u"one"})},
                             {{u"c"}, file(FileRole::Resources, false, {u"two"})},
                             {{u"d"}, file(FileRole::Resources, false, {})},
                             {{u"e"}, file(FileRole::Resources, false, {})}};
    EXPECT_EQ(pathsIn(groupsOf(files)),
              (std::vector<std::vector<std::u16string>>{{u"a"}, {u"b"}, {u"c"}, {u"d"}, {u"e"}}));
}

TEST(FileGroupsTest, FilesThatOthersConnectAreTogether) {
    const CheckedFiles files{{{u"a"}, file(FileRole::Lookup, false, {u"one"})},
                             {{u"b"}, file(FileRole::Lookup, false, {u"two"})},
                             {{u"c"}, file(FileRole::Lookup, false, {u"three"})},
                             {{u"d"}, file(FileRole::Lookup, false, {u"three", u"one"})}};
    EXPECT_EQ(pathsIn(groupsOf(files)),
              (std::vector<std::vector<std::u16string>>{{u"a", u"c", u"d"}, {u"b"}}));
}

TEST(FileGroupsTest, EnglishFilesComeFirst) {
    const CheckedFiles files{{{u"a_de"}, file(FileRole::Resources, true, {u"one"})},
                             {{u"b"}, file(FileRole::Resources, false, {u"two"})},
                             {{u"c"}, file(FileRole::Resources, false, {u"one"})}};
    EXPECT_EQ(pathsIn(groupsOf(files)),
              (std::vector<std::vector<std::u16string>>{{u"b"}, {u"c", u"a_de"}}));
}

} // namespace
} // namespace refdoc::check
