#include "platform/ReadLimits.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>

namespace docparser_tests {

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Pair;

class EntryDamageTest : public PackageTest {};

const std::string kText = "{\"name\": \"graft\", \"purpose\": \"Join two trees, join two trees\"}";

/// A type of damage to an entry.
struct DamagedEntry {
    std::string what;
    ZipEntryBytes entry;
    std::string reason;
};

std::vector<DamagedEntry> damagedEntries(const std::string& text) {
    const std::string packed = deflated(text);
    const auto length = static_cast<std::uint64_t>(text.size());
    return {
        {"stored, wrong checksum", {.name = "x", .content = text, .crc = 1}, "CRC error"},
        {"deflated, wrong checksum",
         {.name = "x", .content = text, .method = kDeflated, .crc = 1},
         "CRC error"},
        {"empty, wrong checksum", {.name = "x", .crc = 1}, "its checksum is wrong"},
        {"stored, states too many bytes",
         {.name = "x", .content = text, .size = length + 1},
         "inconsistent"},
        {"stored, states too few bytes",
         {.name = "x", .content = text, .size = length - 1},
         "larger than the package says"},
        {"deflated, states too many bytes",
         {.name = "x", .content = text, .method = kDeflated, .size = length + 1},
         "smaller than the package says"},
        {"deflated, states far too many bytes",
         {.name = "x", .content = text, .method = kDeflated, .isZip64 = true, .size = 1ULL << 29},
         "smaller than the package says"},
        {"deflated, states too few bytes",
         {.name = "x", .content = text, .method = kDeflated, .size = length - 1},
         "larger than the package says"},
        {"deflated, states no bytes",
         {.name = "x", .content = text, .method = kDeflated, .size = 0},
         "larger than the package says"},
        {"states no stored bytes",
         {.name = "x", .content = text, .method = kDeflated, .packedSize = 0},
         "smaller than the package says"},
        {"deflated stream cut",
         {.name = "x",
          .content = text,
          .method = kDeflated,
          .packed = packed.substr(0, packed.size() / 2)},
         "CRC error"},
        {"deflated stream broken",
         {.name = "x", .content = text, .method = kDeflated, .packed = "\xFF\xFF\xFF\xFF"},
         "Zlib error"},
        {"stored bytes end beyond the file",
         {.name = "x", .content = text, .size = 5'000'000, .packedSize = 5'000'000},
         "Premature end of file"},
        {"header beyond the file", {.name = "x", .content = text, .localOffset = 9'000'000}, ""},
        {"header at the wrong offset", {.name = "x", .content = text, .localOffset = 1}, ""},
        {"encrypted", {.name = "x", .content = text, .flags = kEncryptedFlag}, "it is encrypted"},
        {"strongly encrypted",
         {.name = "x", .content = text, .flags = kEncryptedFlag | 0x0040},
         "it is encrypted"},
        {"unknown method",
         {.name = "x", .content = text, .method = 98},
         "compression method 98 is not supported"},
        {"unknown method, nothing stored",
         {.name = "x", .method = 97, .packed = ""},
         "compression method 97 is not supported"},
    };
}

TEST_F(EntryDamageTest, DamagedEntryThrowsAndAffectsNoOther) {
    // Entries of at most 1 MiB are read differently from larger ones.
    for (const std::string& text :
         {kText, sampleText(std::size_t{1} << 20), sampleText((std::size_t{1} << 20) + 2)}) {
        SCOPED_TRACE(text.size());
        for (const DamagedEntry& damage : damagedEntries(text)) {
            SCOPED_TRACE(damage.what);
            OpenPackage package = open({.entries = {{.name = "before.json", .content = "before"},
                                                    damage.entry,
                                                    {.name = "after.json", .content = "after"}}});
            ASSERT_THAT(package.leafNames(), ElementsAre(u"before.json", u"x", u"after.json"));
            EXPECT_THAT(messageOf([&] { package.read(1); }),
                        testing::AllOf(testing::StartsWith("entry 1 \"x\" of the package \""),
                                       HasSubstr("package.zip\" cannot be delivered: "),
                                       HasSubstr(damage.reason)));
            EXPECT_EQ(package.read(0), "before");
            EXPECT_EQ(package.read(2), "after");
        }
    }
}

TEST_F(EntryDamageTest, ReservedCodeYieldsNoFalseContent) {
    // One block with the fixed codes: the character 'a', the reserved length code 286 with the
    // distance 1, the end. A decoder that accepts the code would repeat the character 258 times.
    const std::string packed = "\x4B\x1C\x03\x00"s;
    const std::string content(259, 'a');
    OpenPackage package = open(
        {.entries = {{.name = "right", .content = content, .method = kDeflated, .packed = packed},
                     {.name = "wrong checksum",
                      .content = content,
                      .method = kDeflated,
                      .packed = packed,
                      .crc = 1}}});
    EXPECT_EQ(package.read(0), content);
    EXPECT_THAT(messageOf([&] { package.read(1); }), HasSubstr("Zlib error"));
}

TEST_F(EntryDamageTest, ReadingExactlyTheSizeDoesNotHideAWrongChecksum) {
    OpenPackage package = open({.entries = {{.name = "a", .content = kText, .crc = 1}}});
    const auto stream =
        package.manager.getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded)
            ->openInputStream();
    std::string buffer(kText.size(), '\0');
    EXPECT_EQ(stream->read(buffer.data(), buffer.size()), buffer.size());
    EXPECT_THROW(stream->read(buffer.data(), buffer.size()), opc::PackageError);
    EXPECT_THAT(messageOf([&] { stream->read(buffer.data(), buffer.size()); }),
                HasSubstr("cannot be delivered: it has failed before"));
}

TEST_F(EntryDamageTest, IgnoresTheNameInTheLocalHeader) {
    OpenPackage package =
        open({.entries = {{.name = "a.json", .content = "text", .localName = "other.txt"}}});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", "text")));
}

/// A package with every type of record that the reader uses.
ZipBytes smallPackage() {
    return {.entries = {{.name = "a.json", .content = kText, .method = kDeflated},
                        {.name = "b.json", .content = "stored", .flags = kUtf8Flag},
                        {.name = "c.json",
                         .content = kText,
                         .method = kDeflated,
                         .descriptor = DataDescriptor::WithSignature,
                         .isZip64 = true}},
            .comment = "comment",
            .isZip64 = true};
}

/// Reads the whole package and expects either the packed content or an exception.
void expectNothingFalse(const std::u16string& path) {
    try {
        OpenPackage package(path);
        for (const auto& leaf : package.leaves()) {
            try {
                const std::string text = package.read(leaf);
                // With a checksum, size and stored size of 0, an entry is a valid empty one.
                EXPECT_TRUE(text == kText || text == "stored" || text.empty()) << text;
            } catch (const opc::PackageError&) {
                // Expected for a damaged entry.
            } catch (const platform::LimitError&) {
                // Expected for an entry whose damaged size exceeds the limit.
            }
        }
    } catch (const opc::PackageError&) {
        // Expected for a damaged package.
    }
}

TEST_F(EntryDamageTest, RefusesAPackageCutAtAnyByte) {
    const std::string whole = smallPackage().build();
    for (std::size_t length = 0; length < whole.size(); ++length) {
        const std::u16string cut = write(std::string_view(whole).substr(0, length));
        EXPECT_THROW(OpenPackage{cut}, opc::PackageError) << length;
    }
}

TEST_F(EntryDamageTest, NoChangedByteYieldsFalseContent) {
    const std::string whole = smallPackage().build();
    for (std::size_t offset = 0; offset < whole.size(); ++offset) {
        for (const int mask : {0x01, 0x80, 0xFF}) {
            SCOPED_TRACE(offset);
            std::string changed = whole;
            changed[offset] = static_cast<char>(changed[offset] ^ mask);
            expectNothingFalse(write(changed));
        }
    }
}

TEST_F(EntryDamageTest, NoMissingOrRepeatedByteYieldsFalseContent) {
    const std::string whole = smallPackage().build();
    for (std::size_t offset = 0; offset < whole.size(); ++offset) {
        SCOPED_TRACE(offset);
        expectNothingFalse(write(std::string(whole).erase(offset, 1)));
        expectNothingFalse(write(std::string(whole).insert(offset, 1, whole[offset])));
    }
}

} // namespace

} // namespace docparser_tests
