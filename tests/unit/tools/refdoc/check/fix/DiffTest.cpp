#include "tools/refdoc/check/fix/Diff.hpp"

#include <gtest/gtest.h>

#include <string>

namespace refdoc::check {
namespace {

std::string diffOf(std::string_view before, std::string_view after) {
    return unifiedDiff({.oldName = "A", .newName = "A", .before = before, .after = after}, {});
}

std::string hunksOf(std::string_view before, std::string_view after) {
    const std::string diff = diffOf(before, after);
    return diff.substr(diff.find("@@"));
}

// Lines that are numbered from `first` to `last`, with a mark before each.
std::string lines(int first, int last, const std::string& mark = "") {
    std::string result;
    for (int number = first; number <= last; ++number)
        result += mark + std::to_string(number) + '\n';
    return result;
}

TEST(Diff, NamesTheFileAndShowsTheChangedLine) {
    EXPECT_EQ(diffOf("a\nb\nc\n", "a\nB\nc\n"), "diff --git a/A b/A\n"
                                                "--- a/A\n"
                                                "+++ b/A\n"
                                                "@@ -1,3 +1,3 @@\n"
                                                " a\n"
                                                "-b\n"
                                                "+B\n"
                                                " c\n");
}

TEST(Diff, PutsRemovedLinesBeforeAddedOnes) {
    EXPECT_EQ(hunksOf("a\nb\nc\n", "A\nB\nc\n"), "@@ -1,3 +1,3 @@\n-a\n-b\n+A\n+B\n c\n");
}

TEST(Diff, HasThreeLinesOfContext) {
    EXPECT_EQ(hunksOf(lines(1, 9), lines(1, 4) + "x\n" + lines(6, 9)),
              "@@ -2,7 +2,7 @@\n" + lines(2, 4, " ") + "-5\n+x\n" + lines(6, 8, " "));
}

TEST(Diff, JoinsHunksThatTouch) {
    EXPECT_EQ(hunksOf("a\n" + lines(1, 6) + "b\n", "A\n" + lines(1, 6) + "B\n"),
              "@@ -1,8 +1,8 @@\n-a\n+A\n" + lines(1, 6, " ") + "-b\n+B\n");
    EXPECT_EQ(hunksOf("a\n" + lines(1, 7) + "b\n", "A\n" + lines(1, 7) + "B\n"),
              "@@ -1,4 +1,4 @@\n-a\n+A\n" + lines(1, 3, " ") + "@@ -6,4 +6,4 @@\n" +
                  lines(5, 7, " ") + "-b\n+B\n");
}

TEST(Diff, MarksMissingLineFeedAtTheEnd) {
    EXPECT_EQ(hunksOf("a", "A"), "@@ -1,1 +1,1 @@\n"
                                 "-a\n\\ No newline at end of file\n"
                                 "+A\n\\ No newline at end of file\n");
    EXPECT_EQ(hunksOf("a\nb", "A\nb"),
              "@@ -1,2 +1,2 @@\n-a\n+A\n b\n\\ No newline at end of file\n");
}

TEST(Diff, KeepsCarriageReturnsAndTabs) {
    EXPECT_EQ(hunksOf("\ta\r\n", "\tA\r\n"), "@@ -1,1 +1,1 @@\n-\ta\r\n+\tA\r\n");
}

TEST(Diff, RenameAloneHasNoHunks) {
    EXPECT_EQ(
        unifiedDiff({.oldName = "x/A.JSON", .newName = "x/A.json", .before = {}, .after = {}}, {}),
        "diff --git a/x/A.JSON b/x/A.json\n"
        "rename from x/A.JSON\n"
        "rename to x/A.json\n");
}

// What precedes the first hunk.
std::string headerOf(const std::string& oldName, const std::string& newName) {
    const std::string diff =
        unifiedDiff({.oldName = oldName, .newName = newName, .before = "a", .after = "b"}, {});
    return diff.substr(0, diff.find("@@"));
}

TEST(Diff, RenameMayHaveHunks) {
    EXPECT_EQ(headerOf("A.JSON", "A.json"), "diff --git a/A.JSON b/A.json\n"
                                            "rename from A.JSON\n"
                                            "rename to A.json\n"
                                            "--- a/A.JSON\n"
                                            "+++ b/A.json\n");
}

TEST(Diff, NamesAreWrittenForToolsThatReadThem) {
    struct Row {
        std::string name;
        std::string header;
    };
    const Row rows[] = {
        {"/root/A", "diff --git a/root/A b/root/A\n--- a/root/A\n+++ b/root/A\n"},
        {"a b", "diff --git a/a b b/a b\n--- a/a b\t\n+++ b/a b\t\n"},
        {"木.json", "diff --git a/木.json b/木.json\n--- a/木.json\n+++ b/木.json\n"},
        {"\"\n", "diff --git \"a/\\042\\012\" \"b/\\042\\012\"\n"
                 "--- \"a/\\042\\012\"\n+++ \"b/\\042\\012\"\n"},
    };
    for (const auto& [name, header] : rows)
        EXPECT_EQ(headerOf(name, name), header);
}

TEST(Diff, IsPaintedByTheRoleOfEachLine) {
    EXPECT_EQ(unifiedDiff({.oldName = "A", .newName = "A", .before = "a\nb\n", .after = "a\nc\n"},
                          {.color = true}),
              "\x1b[1mdiff --git a/A b/A\x1b[0m\n"
              "\x1b[1m--- a/A\x1b[0m\n"
              "\x1b[1m+++ b/A\x1b[0m\n"
              "\x1b[2m@@ -1,2 +1,2 @@\x1b[0m\n"
              " a\n"
              "\x1b[31m-b\x1b[0m\n"
              "\x1b[32m+c\x1b[0m\n");
}

TEST(Diff, ControlCharactersAreVisibleOnlyOnTerminal) {
    const DiffSides sides{
        .oldName = "A", .newName = "A", .before = "\tx\x1b\r\n", .after = "\ty\x1b\r\n"};
    const auto changesFor = [&](bool isForTerminal) {
        const std::string diff = unifiedDiff(sides, {.isForTerminal = isForTerminal});
        return diff.substr(diff.find("@@\n") + 3);
    };
    EXPECT_EQ(changesFor(true), "- x␛␍\n+ y␛␍\n");
    EXPECT_EQ(changesFor(false), "-\tx\x1b\r\n+\ty\x1b\r\n");
}

} // namespace
} // namespace refdoc::check
