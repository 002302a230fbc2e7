#include "platform/InstallationManifest.hpp"

#include "platform/ReadLimits.hpp"
#include "platform/system/NativePath.hpp"
#include "tests/support/NativeText.hpp"
#include "tests/support/PosixTest.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <chrono>
#include <functional>
#include <future>
#include <stdexcept>
#include <thread>

namespace platform {

namespace {

using docparser_tests::TemporaryFolder;
using docproduct::ProductFamily;
using docproduct::TopLevelDocProduct;
using std::string;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointee;
using testing::UnorderedElementsAre;

class InstallationManifestTest : public testing::Test {
protected:
    void write(std::string_view text) { folder_.write("installation.json", text); }

    InstallationManifest manifest() const { return InstallationManifest(folder_.u16()); }

    string file() const { return docparser_tests::textOf(folder_.path() / "installation.json"); }

    // Returns the message of the exception for a manifest with this text.
    string failureOf(std::string_view text) {
        write(text);
        return failure();
    }

    string failure() const { return failureOf(manifest()); }

    static string failureOf(const InstallationManifest& manifest) {
        try {
            manifest.docLanguage();
            return "no failure";
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
    }

    static void expectNothingInstalled(const InstallationManifest& manifest) {
        EXPECT_EQ(manifest.docLanguage(), u"en");
        EXPECT_THAT(manifest.supportedDocLanguages(), ElementsAre(u"en"));
        EXPECT_THAT(manifest.installedTopLevelDocProducts(), IsEmpty());
        EXPECT_EQ(manifest.supportPackageRoot(), u"");
        EXPECT_THAT(manifest.installedHardwareSupportPackages(u"/any"), IsEmpty());
    }

    TemporaryFolder folder_;
};

TEST_F(InstallationManifestTest, HasOnlyEnglishAndNothingInstalledWithoutAFile) {
    expectNothingInstalled(manifest());
    expectNothingInstalled(InstallationManifest(folder_.u16() + u"/no/such/folder"));
    EXPECT_EQ(manifest().installPath(), folder_.u16());
}

TEST_F(InstallationManifestTest, IgnoresUnknownKeysAndRequiresNone) {
    write("{}");
    expectNothingInstalled(manifest());
    write(R"({"schemaVersion": 7, "DocLanguage": "de", "topLevelProducts": []})");
    expectNothingInstalled(manifest());
}

TEST_F(InstallationManifestTest, ReadsEveryKey) {
    write(R"({"docLanguage": "ja", "supportedDocLanguages": ["en", "ja", "zh_CN", "ja"],
        "topLevelProducts": [
            {"shortName": "orchard", "displayName": "Orchard Toolkit", "helpLocation": "orch",
             "baseCode": "OR", "altShortName": "orc", "availability": "desktop",
             "families": ["trees", "shrubs"], "unknown": {}},
            {"shortName": ""}],
        "supportPackageRoot": "/srv/packages",
        "hardwareSupportPackages": ["sensorkit", "drone", "sensorkit"]})");
    const InstallationManifest manifest(folder_.u16());
    EXPECT_EQ(manifest.docLanguage(), u"ja");
    EXPECT_THAT(manifest.supportedDocLanguages(), ElementsAre(u"en", u"ja", u"zh_CN", u"ja"));
    EXPECT_THAT(manifest.installedTopLevelDocProducts(),
                ElementsAre(Pointee(TopLevelDocProduct(
                                "Orchard Toolkit", "orch", "orchard", "OR", "orc", "desktop",
                                {ProductFamily("trees"), ProductFamily("shrubs")})),
                            Pointee(TopLevelDocProduct("", "", "", "", "", "", {}))));
    EXPECT_EQ(manifest.supportPackageRoot(), u"/srv/packages");
    for (const char16_t* root : {u"/srv/packages", u""})
        EXPECT_THAT(manifest.installedHardwareSupportPackages(root),
                    UnorderedElementsAre(u"sensorkit", u"drone"));
}

TEST_F(InstallationManifestTest, ReadsStringsBeyondAscii) {
    write(R"({"docLanguage": "日本", "supportedDocLanguages": ["日本", "🌳", "\uD83C\uDF33"],
        "topLevelProducts": [{"shortName": "café", "families": ["木"]}],
        "supportPackageRoot": "/東京/🌳", "hardwareSupportPackages": ["été"]})");
    const InstallationManifest manifest(folder_.u16());
    EXPECT_EQ(manifest.docLanguage(), u"日本");
    EXPECT_THAT(manifest.supportedDocLanguages(), ElementsAre(u"日本", u"🌳", u"🌳"));
    EXPECT_EQ(manifest.installedTopLevelDocProducts().at(0)->getShortName(), "café");
    EXPECT_THAT(manifest.installedTopLevelDocProducts().at(0)->getFamilies(),
                ElementsAre(ProductFamily("木")));
    EXPECT_EQ(manifest.supportPackageRoot(), u"/東京/🌳");
    EXPECT_THAT(manifest.installedHardwareSupportPackages(u""), UnorderedElementsAre(u"été"));
}

TEST_F(InstallationManifestTest, ReadsFromAFolderWithANameBeyondAscii) {
    folder_.write(u"東京 🌳/installation.json", R"({"docLanguage": "ja"})");
    EXPECT_EQ(InstallationManifest(folder_.u16() + u"/東京 🌳").docLanguage(), u"ja");
}

TEST_F(InstallationManifestTest, ResolvesARelativeSupportPackageRootAgainstTheInstallFolder) {
    write(R"({"supportPackageRoot": "supportpackages"})");
    EXPECT_EQ(manifest().supportPackageRoot(), folder_.u16() + kPathSeparator + u"supportpackages");
    EXPECT_EQ(InstallationManifest(folder_.u16() + u"/").supportPackageRoot(),
              folder_.u16() + u"/supportpackages");
    write(R"({"supportPackageRoot": "../shared/packages/"})");
    EXPECT_EQ(manifest().supportPackageRoot(),
              folder_.u16() + kPathSeparator + u"../shared/packages/");
}

TEST_F(InstallationManifestTest, KeepsAnEmptySupportPackageRootEmpty) {
    write(R"({"supportPackageRoot": ""})");
    EXPECT_EQ(manifest().supportPackageRoot(), u"");
}

TEST_F(InstallationManifestTest, UsesTheLastOfTwoEqualKeys) {
    write(R"({"docLanguage": 1, "docLanguage": "de", "topLevelProducts": [
        {"shortName": "first", "shortName": "second"}]})");
    EXPECT_EQ(manifest().docLanguage(), u"de");
    EXPECT_EQ(manifest().installedTopLevelDocProducts().at(0)->getShortName(), "second");
}

struct DamageCase {
    const char* text;
    const char* failure; // the JSON pointer and the reason
};

TEST_F(InstallationManifestTest, ReportsFileAndPointerOfAValueOfTheWrongType) {
    constexpr DamageCase cases[] = {
        {"[]", "the top level: an object was expected"},
        {"null", "the top level: an object was expected"},
        {"\"en\"", "the top level: an object was expected"},
        {R"({"docLanguage": null})", "/docLanguage: a string was expected"},
        {R"({"docLanguage": ["en"]})", "/docLanguage: a string was expected"},
        {R"({"supportedDocLanguages": "en"})", "/supportedDocLanguages: an array was expected"},
        {R"({"supportedDocLanguages": {"0": "en"}})",
         "/supportedDocLanguages: an array was expected"},
        {R"({"supportedDocLanguages": ["en", 5]})",
         "/supportedDocLanguages/1: a string was expected"},
        {R"({"topLevelProducts": {}})", "/topLevelProducts: an array was expected"},
        {R"({"topLevelProducts": ["orchard"]})", "/topLevelProducts/0: an object was expected"},
        {R"({"topLevelProducts": [{"shortName": "a"}, []]})",
         "/topLevelProducts/1: an object was expected"},
        {R"({"topLevelProducts": [{"displayName": "Orchard"}]})",
         "/topLevelProducts/0: the key \"shortName\" is missing"},
        {R"({"topLevelProducts": [{"shortName": null}]})",
         "/topLevelProducts/0/shortName: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "displayName": 1}]})",
         "/topLevelProducts/0/displayName: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "helpLocation": true}]})",
         "/topLevelProducts/0/helpLocation: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "baseCode": {}}]})",
         "/topLevelProducts/0/baseCode: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "altShortName": []}]})",
         "/topLevelProducts/0/altShortName: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "availability": 1.5}]})",
         "/topLevelProducts/0/availability: a string was expected"},
        {R"({"topLevelProducts": [{"shortName": "a", "families": "trees"}]})",
         "/topLevelProducts/0/families: an array was expected"},
        {R"({"topLevelProducts": [{"shortName": "a"}, {"shortName": "b", "families": ["t", 0]}]})",
         "/topLevelProducts/1/families/1: a string was expected"},
        {R"({"supportPackageRoot": false})", "/supportPackageRoot: a string was expected"},
        {R"({"hardwareSupportPackages": "kit"})",
         "/hardwareSupportPackages: an array was expected"},
        {R"({"hardwareSupportPackages": [["kit"]]})",
         "/hardwareSupportPackages/0: a string was expected"},
    };
    for (const DamageCase& one : cases)
        EXPECT_EQ(failureOf(one.text), file() + ": " + one.failure) << one.text;
}

TEST_F(InstallationManifestTest, ReportsASupportPackageRootThatIsNotAPath) {
    EXPECT_THAT(failureOf(R"({"supportPackageRoot": "a\u0000b"})"),
                testing::StartsWith(file() + ": /supportPackageRoot: a path holds NUL"));
}

struct SyntaxCase {
    const char* text;
    const char* position;
};

TEST_F(InstallationManifestTest, ReportsLineAndColumnOfASyntaxError) {
    constexpr SyntaxCase cases[] = {
        {"", "line 1, column 1: "},
        {"  \n", "line 2, column 1: "},
        {"x", "line 1, column 1: "},
        {"{\"docLanguage\": }", "line 1, column 17: "},
        {"{\n  \"docLanguage\": \"de\",\n  nonsense\n}", "line 3, column 3: "},
        {"{\r\n  \"docLanguage\": \"de\",\r\n  nonsense\r\n}", "line 3, column 3: "},
        {"{\"docLanguage\": \"日本\" x}", "line 1, column 22: "},
        {"{} {}", "line 1, column 4: "},
        {"{\"docLanguage\": \"de\"", "line 1, column 21: "},
        {"\xEF\xBB\xBF{}", "line 1, column 1: "},
    };
    for (const SyntaxCase& one : cases)
        EXPECT_THAT(failureOf(one.text), testing::StartsWith(file() + ": " + one.position))
            << one.text;
}

TEST_F(InstallationManifestTest, ReportsIllFormedText) {
    for (const std::string_view text : {std::string_view("{\"docLanguage\": \"\xE3\"}"),
                                        std::string_view("{\"docLanguage\": \"\\uD83C\"}"),
                                        std::string_view("{\"docLanguage\": \"\0\"}", 19)})
        EXPECT_THAT(failureOf(text), testing::StartsWith(file() + ": line 1, column ")) << text;
    EXPECT_THAT(failureOf(string(100'000, '[')), testing::StartsWith(file() + ": line 1, column "));
}

TEST_F(InstallationManifestTest, MalformedFileFailsEveryQuestionExceptTheInstallFolder) {
    write("{");
    const InstallationManifest manifest(folder_.u16());
    EXPECT_EQ(manifest.installPath(), folder_.u16());
    EXPECT_THROW(manifest.docLanguage(), std::runtime_error);
    EXPECT_THROW(manifest.supportedDocLanguages(), std::runtime_error);
    EXPECT_THROW(manifest.installedTopLevelDocProducts(), std::runtime_error);
    EXPECT_THROW(manifest.supportPackageRoot(), std::runtime_error);
    EXPECT_THROW(manifest.installedHardwareSupportPackages(u""), std::runtime_error);
}

TEST_F(InstallationManifestTest, ReportsAFolderInPlaceOfTheFile) {
    std::filesystem::create_directory(file());
    EXPECT_EQ(failure(), file() + ": it is not a file that can be read");
}

POSIX_TEST_F(InstallationManifestTest, ReportsALinkLoopInPlaceOfTheFile) {
    std::filesystem::create_symlink("installation.json", file());
    EXPECT_EQ(failure(), file() + ": it is not a file that can be read");
}

#ifndef _WIN32
TEST_F(InstallationManifestTest, ReportsAPipeInPlaceOfTheFileWithoutWaiting) {
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    std::promise<string> answer;
    std::future<string> result = answer.get_future();
    std::thread asker([&] { answer.set_value(failure()); });
    const bool isPrompt = result.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
    // Opening both ends releases a reader that waits.
    const int release = ::open(file().c_str(), O_RDWR | O_NONBLOCK);
    ::close(release);
    asker.join();
    EXPECT_TRUE(isPrompt);
    EXPECT_EQ(result.get(), file() + ": it is not a file that can be read");
}

#endif

POSIX_TEST_F(InstallationManifestTest, FollowsALinkAndTreatsADanglingOneAsMissing) {
    folder_.write("elsewhere/here.json", R"({"docLanguage": "de"})");
    std::filesystem::create_symlink("elsewhere/here.json", file());
    EXPECT_EQ(manifest().docLanguage(), u"de");
    std::filesystem::remove(folder_.path() / "elsewhere/here.json");
    expectNothingInstalled(manifest());
}

TEST_F(InstallationManifestTest, RefusesAFileAboveTheReadLimitBeforeAllocating) {
    write("{}");
    std::filesystem::resize_file(file(), std::uint64_t{5} << 30);
    EXPECT_EQ(failure(), file() + ": the file is larger than the limit of " +
                             std::to_string(readLimits().fileBytes) + " bytes");
}

TEST_F(InstallationManifestTest, ReportsAnInstallFolderThatIsNotAPath) {
    const auto failureIn = [](const std::u16string& folder) {
        return failureOf(InstallationManifest(folder));
    };
    EXPECT_THAT(failureIn(std::u16string{u'/', u'a', u'\0', u'b'}), testing::StartsWith("/a"));
#ifndef _WIN32 // where paths are UTF-16, an unpaired surrogate is valid
    EXPECT_THAT(failureIn(std::u16string{u'/', u'a', 0xD800}),
                testing::StartsWith("/a\xEF\xBF\xBD/installation.json: a path holds an unpaired"));
#endif
}

TEST_F(InstallationManifestTest, ReturnsTheSameProductsOnEachCall) {
    write(R"({"topLevelProducts": [{"shortName": "orchard"}, {"shortName": "garden"}]})");
    const InstallationManifest manifest(folder_.u16());
    const auto products = manifest.installedTopLevelDocProducts();
    EXPECT_EQ(products.size(), 2u);
    EXPECT_EQ(manifest.installedTopLevelDocProducts(), products);
}

TEST_F(InstallationManifestTest, ReadsTheFileOnceAtTheFirstQuestion) {
    write("{");
    const InstallationManifest manifest(folder_.u16());
    write(R"({"docLanguage": "de", "hardwareSupportPackages": ["kit"]})");
    EXPECT_EQ(manifest.docLanguage(), u"de");
    write(R"({"docLanguage": "ja"})");
    EXPECT_EQ(manifest.docLanguage(), u"de");
    std::filesystem::remove(file());
    EXPECT_THAT(manifest.installedHardwareSupportPackages(u""), UnorderedElementsAre(u"kit"));
}

TEST_F(InstallationManifestTest, ReadsTheFileAgainAfterAFailure) {
    write(R"({"docLanguage": "de", "topLevelProducts": [{"shortName": "orchard"}, 1]})");
    const InstallationManifest manifest(folder_.u16());
    EXPECT_THROW(manifest.docLanguage(), std::runtime_error);
    EXPECT_THROW(manifest.installedTopLevelDocProducts(), std::runtime_error);
    write(R"({"topLevelProducts": [{"shortName": "garden"}]})");
    EXPECT_EQ(manifest.docLanguage(), u"en") << "the damaged file has no effect";
    ASSERT_EQ(manifest.installedTopLevelDocProducts().size(), 1u);
    EXPECT_EQ(manifest.installedTopLevelDocProducts().at(0)->getShortName(), "garden");
}

TEST_F(InstallationManifestTest, AnswersEightThreadsWithTheSameProducts) {
    write(R"({"docLanguage": "ja", "topLevelProducts": [{"shortName": "orchard"}],
              "supportPackageRoot": "packages", "hardwareSupportPackages": ["kit"]})");
    const InstallationManifest manifest(folder_.u16());
    std::vector<std::vector<std::shared_ptr<const TopLevelDocProduct>>> products(8);
    std::vector<std::thread> threads;
    for (auto& ofThread : products)
        threads.emplace_back([&] {
            ofThread = manifest.installedTopLevelDocProducts();
            EXPECT_EQ(manifest.docLanguage(), u"ja");
            EXPECT_EQ(manifest.supportPackageRoot(), folder_.u16() + kPathSeparator + u"packages");
            EXPECT_THAT(manifest.installedHardwareSupportPackages(u""), ElementsAre(u"kit"));
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(products.front().size(), 1u);
    EXPECT_THAT(products, testing::Each(products.front()));
}

} // namespace

} // namespace platform
