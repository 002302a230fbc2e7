#include "tests/support/ZipBytes.hpp"
#include "tests/system/refdoc/check/CheckTest.hpp"

namespace refdoc_tests {
namespace {

using docparser_tests::deflated;
using docparser_tests::kDeflated;
using docparser_tests::ZipBytes;
using docparser_tests::ZipEntryBytes;

const std::string kText =
    section("a", R"({"name": "a", "href": "a.html", "refpurpose": "Join two trees"})");

std::string invertedAt(std::size_t offset, std::string bytes) {
    bytes[offset] = static_cast<char>(~bytes[offset]);
    return bytes;
}

struct Damage {
    std::string what;
    ZipEntryBytes entry;
    std::string cause;
};

std::vector<Damage> damages() {
    const std::string packed = deflated(kText);
    const auto size = static_cast<std::uint64_t>(kText.size());
    return {
        {"stored, one byte changed",
         {.content = kText, .packed = invertedAt(40, kText)},
         "damaged data"},
        {"deflated, first byte changed",
         {.content = kText, .method = kDeflated, .packed = invertedAt(0, packed)},
         "damaged data"},
        {"deflated, last byte changed",
         {.content = kText, .method = kDeflated, .packed = invertedAt(packed.size() - 1, packed)},
         "damaged data"},
        {"deflated, cut",
         {.content = kText, .method = kDeflated, .packed = packed.substr(0, packed.size() / 2)},
         "damaged data"},
        {"deflated, wrong checksum",
         {.content = kText, .method = kDeflated, .crc = 1},
         "damaged data"},
        {"deflated, more than stated",
         {.content = kText, .method = kDeflated, .size = size - 1},
         "damaged data"},
        {"deflated, less than stated",
         {.content = kText, .method = kDeflated, .size = size + 1},
         "damaged data"},
        {"encrypted",
         {.content = kText, .flags = docparser_tests::kEncryptedFlag},
         "it is encrypted"},
        {"unknown method",
         {.content = kText, .method = 98},
         "compression method 98 is not supported"},
    };
}

class PackageTest : public CheckTest {};

TEST_F(PackageTest, DamagedEntryIsOneFindingThatNamesTheCause) {
    for (Damage& damage : damages()) {
        SCOPED_TRACE(damage.what);
        damage.entry.name = "A.json";
        add("A.zip", ZipBytes{.entries = {damage.entry}}.build());
        EXPECT_EQ(check({"A.zip"}),
                  (Outcome{1,
                           "A.zip!A.json: error: the entry can't be read: " + damage.cause +
                               " [unreadable-entry]\n1 error in 1 file; 1 file checked\n",
                           ""}));
    }
}

} // namespace
} // namespace refdoc_tests
