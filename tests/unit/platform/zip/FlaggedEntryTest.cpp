#include "platform/zip/Directory.hpp"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

namespace platform::zip {
namespace {

TEST(FlaggedEntry, FlagIsClearedWhereverThePartBegins) {
    const std::vector<FlaggedEntry> entries = {{.index = 0, .flagOffset = 10},
                                               {.index = 2, .flagOffset = 12}};
    const struct {
        std::uint64_t offset;
        std::string bytes;
        std::string cleared;
    } rows[] = {
        {7, "\x0F\x0F\x0F", "\x0F\x0F\x0F"},
        {9, "\x0F\x0F\x0F\x0F\x0F", "\x0F\x07\x0F\x07\x0F"},
        {10, "\x0F\x08\x0F", "\x07\x08\x07"},
        {11, "\x0F\x0F", "\x0F\x07"},
        {12, "\x08", std::string(1, '\0')},
        {13, "\x0F", "\x0F"},
        {10, "", ""},
    };
    for (const auto& row : rows) {
        std::string bytes = row.bytes + '\x0F';
        clearUtf8Flags(entries, row.offset, std::span(bytes).first(row.bytes.size()));
        EXPECT_EQ(bytes, row.cleared + '\x0F') << row.offset;
    }
}

} // namespace
} // namespace platform::zip
