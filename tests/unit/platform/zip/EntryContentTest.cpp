#include "tests/support/PosixTest.hpp"
#include "tests/unit/platform/package/PackageTest.hpp"

#include <gmock/gmock.h>
#include <zip.h>

#include <array>
#include <memory>

namespace docparser_tests {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class EntryContentTest : public PackageTest {};

/// Writes a package of one file with libzip.
void writeWithLibzip(const std::string& file, const char* name, const std::string& content,
                     zip_int32_t method, zip_uint16_t encryption) {
    zip_t* archive = zip_open(file.c_str(), ZIP_CREATE | ZIP_EXCL, nullptr);
    ASSERT_NE(archive, nullptr);
    zip_source_t* source = zip_source_buffer(archive, content.data(), content.size(), 0);
    const zip_int64_t index = zip_file_add(archive, name, source, ZIP_FL_ENC_UTF_8);
    ASSERT_GE(index, 0);
    const auto place = static_cast<zip_uint64_t>(index);
    ASSERT_EQ(zip_set_file_compression(archive, place, method, 0), 0);
    if (encryption != ZIP_EM_NONE) {
        ASSERT_EQ(zip_file_set_encryption(archive, place, encryption, "secret"), 0);
    }
    ASSERT_EQ(zip_close(archive), 0);
}

TEST_F(EntryContentTest, ReadsStoredAndDeflatedEntries) {
    const std::string text = sampleText(100'000);
    OpenPackage package =
        open({.entries = {{.name = "a.json", .content = text},
                          {.name = "b.json", .content = text, .method = kDeflated},
                          {.name = "c.json", .content = ""},
                          {.name = "d.json", .method = kDeflated}}});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", text), Pair(u"b.json", text),
                                                Pair(u"c.json", ""), Pair(u"d.json", "")));
}

TEST_F(EntryContentTest, ReadsEveryByteValue) {
    std::string bytes;
    for (int value = 0; value < 256; ++value)
        bytes += static_cast<char>(value);
    OpenPackage package = open({.entries = {{.name = "a", .content = bytes},
                                            {.name = "b", .content = bytes, .method = kDeflated}}});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a", bytes), Pair(u"b", bytes)));
}

TEST_F(EntryContentTest, ReadsLongEntriesWhole) {
    for (const std::size_t length : {std::size_t{16 * 1024}, std::size_t{1024 * 1024},
                                     std::size_t{1024 * 1024 + 1}, std::size_t{5'000'000}}) {
        const std::string text = sampleText(length);
        OpenPackage package =
            open({.entries = {{.name = "a", .content = text, .method = kDeflated}}});
        EXPECT_TRUE(package.read(0) == text) << length;
    }
}

TEST_F(EntryContentTest, IgnoresBytesBehindADeflatedStream) {
    for (const std::size_t length : {std::size_t{5000}, std::size_t{1024 * 1024 + 1}}) {
        const std::string text = sampleText(length);
        OpenPackage package = open({.entries = {{.name = "a",
                                                 .content = text,
                                                 .method = kDeflated,
                                                 .packed = deflated(text) + "rest"}}});
        EXPECT_TRUE(package.read(0) == text) << length;
    }
}

TEST_F(EntryContentTest, ReadsEntriesWithDataDescriptors) {
    const std::string text = sampleText(5000);
    ZipBytes zip;
    for (const DataDescriptor descriptor :
         {DataDescriptor::WithSignature, DataDescriptor::WithoutSignature}) {
        for (const std::uint16_t method : {kStored, kDeflated}) {
            for (const bool isZip64 : {false, true}) {
                zip.entries.push_back({.name = "a",
                                       .content = text,
                                       .method = method,
                                       .descriptor = descriptor,
                                       .isZip64 = isZip64});
            }
        }
    }
    OpenPackage package = open(zip);
    EXPECT_EQ(package.contents(), std::vector<NamedText>(8, {u"a", text}));
}

TEST_F(EntryContentTest, ReadsZip64EntriesAndDirectories) {
    for (const bool isDirectoryZip64 : {false, true}) {
        OpenPackage package =
            open({.entries = {{.name = "a", .content = "one", .isZip64 = true},
                              {.name = "b", .content = "two", .method = kDeflated}},
                  .isZip64 = isDirectoryZip64});
        EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a", "one"), Pair(u"b", "two")));
    }
}

TEST_F(EntryContentTest, EntriesWithEqualNamesAreDifferentFiles) {
    OpenPackage package = open({.entries = {{.name = "a.json", .content = "first"},
                                            {.name = "a.json", .content = "second"},
                                            {.name = "a.json", .content = "third"}}});
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"a.json", "first"), Pair(u"a.json", "second"),
                                                Pair(u"a.json", "third")));
}

TEST_F(EntryContentTest, NestedPackageIsOneEntry) {
    const std::string inner =
        ZipBytes{.entries = {{.name = "inner.json", .content = "inside"}}}.build();
    for (const std::uint16_t method : {kStored, kDeflated}) {
        OpenPackage package =
            open({.entries = {{.name = "inner.zip", .content = inner, .method = method}}});
        EXPECT_THAT(package.contents(), ElementsAre(Pair(u"inner.zip", inner)));
    }
}

TEST_F(EntryContentTest, EmptyPackageHasNoLeaves) {
    for (const bool isZip64 : {false, true}) {
        const OpenPackage package = open({.isZip64 = isZip64});
        EXPECT_TRUE(package.manager.getAllLeafs().empty());
        EXPECT_EQ(package.manager.getAllLeafs().size(), 0U);
    }
}

TEST_F(EntryContentTest, ListsManyEntriesInOrder) {
    constexpr std::size_t kCount = 70'000; // more than 16 bits can count
    ZipBytes zip{.isZip64 = true};
    for (std::size_t i = 0; i < kCount; ++i)
        zip.entries.push_back({.name = std::to_string(i)});
    const OpenPackage package = open(zip);
    const std::vector<opc::qorservices::FileSystemEntry> leaves = package.leaves();
    ASSERT_EQ(leaves.size(), kCount);
    EXPECT_EQ(leaves.front().getBaseName(), u"0");
    EXPECT_EQ(leaves.back().getBaseName(), u"69999");
}

TEST_F(EntryContentTest, ReadsPackagesWrittenByLibzip) {
    const std::string text = sampleText(300'000);
    const std::string file = (folder / "made.zip").string();
    writeWithLibzip(file, "Obst\xC3\xA4pfel.json", text, ZIP_CM_DEFLATE, ZIP_EM_NONE);
    OpenPackage package(path("made.zip"));
    EXPECT_THAT(package.contents(), ElementsAre(Pair(u"Obst\u00E4pfel.json", text)));
}

POSIX_TEST_F(EntryContentTest, RefusesAesEncryptedEntries) {
    writeWithLibzip((folder / "aes.zip").string(), "a.json", "text", ZIP_CM_DEFLATE,
                    ZIP_EM_AES_256);
    OpenPackage package(path("aes.zip"));
    EXPECT_THAT(package.leafNames(), ElementsAre(u"a.json"));
    EXPECT_THAT(messageOf([&] { package.read(0); }),
                testing::AllOf(testing::HasSubstr("\"a.json\""),
                               testing::HasSubstr("cannot be delivered: it is encrypted")));
}

TEST_F(EntryContentTest, StreamsCanBeReadInTurn) {
    const std::string text = sampleText(200'000);
    OpenPackage package = open({.entries = {{.name = "a", .content = text},
                                            {.name = "b", .content = text, .method = kDeflated}}});
    const auto leaves = package.leaves();
    std::array<std::unique_ptr<opc::InputStream>, 3> streams;
    std::array<std::string, 3> texts;
    for (std::size_t i = 0; i < streams.size(); ++i)
        streams[i] =
            package.manager.getFileContentSource(leaves[i % 2], opc::TransformMode::Decoded)
                ->openInputStream();
    std::array<char, 777> buffer;
    for (bool hasMore = true; hasMore;) {
        hasMore = false;
        for (std::size_t i = 0; i < streams.size(); ++i) {
            const std::size_t count = streams[i]->read(buffer.data(), buffer.size());
            texts[i].append(buffer.data(), count);
            hasMore = hasMore || count > 0;
        }
    }
    for (const std::string& read : texts)
        EXPECT_TRUE(read == text);
}

TEST_F(EntryContentTest, ContentSourceOpensSeveralStreams) {
    OpenPackage package = open({.entries = {{.name = "a", .content = "text"}}});
    const auto source =
        package.manager.getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded);
    EXPECT_EQ(readWhole(*source->openInputStream()), "text");
    EXPECT_EQ(readWhole(*source->openInputStream()), "text");
}

TEST_F(EntryContentTest, StreamStaysAtItsEnd) {
    OpenPackage package = open({.entries = {{.name = "a", .content = "text"}}});
    const auto stream =
        package.manager.getFileContentSource(package.leaves().front(), opc::TransformMode::Decoded)
            ->openInputStream();
    std::array<char, 4> buffer;
    EXPECT_EQ(stream->read(buffer.data(), 0), 0U);
    EXPECT_EQ(stream->read(buffer.data(), buffer.size()), 4U);
    EXPECT_EQ(stream->read(buffer.data(), buffer.size()), 0U);
    EXPECT_EQ(stream->read(buffer.data(), buffer.size()), 0U);
}

} // namespace

} // namespace docparser_tests
