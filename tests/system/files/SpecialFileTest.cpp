#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/Watchdog.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

using std::filesystem::create_symlink;

// A pipe without data.
class Pipe {
public:
    Pipe() { EXPECT_EQ(::pipe2(ends_.data(), O_CLOEXEC), 0); }
    ~Pipe() {
        for (const int end : ends_)
            ::close(end);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int readingEnd() const { return ends_[0]; }

private:
    std::array<int, 2> ends_{};
};

// Things that have the name of a resource file or package but are not regular files.
class SpecialFileTest : public SystemTest {
protected:
    SpecialFileTest() {
        setLanguage(u"de");
        addSupport("Found.json", resourceText("found", {}));
        addLookup("Found.json", ResourceText("found").str());
    }

    struct Special {
        const char* what;
        std::function<void(const std::string& path)> make;
    };

    std::vector<Special> specials() const {
        const auto linkTo = [](const std::string& target) {
            return [target](const std::string& path) { create_symlink(target, path); };
        };
        const auto node = [](mode_t type) {
            return [type](const std::string& path) {
                ASSERT_EQ(::mknod(path.c_str(), type | 0600, 0), 0);
            };
        };
        return {{"a folder", [](const auto& path) { std::filesystem::create_directory(path); }},
                {"a pipe", node(S_IFIFO)},
                {"a socket", node(S_IFSOCK)},
                {"the pipe of a descriptor",
                 linkTo("/proc/self/fd/" + std::to_string(pipe_.readingEnd()))},
                {"an endless device", linkTo("/dev/zero")},
                {"a device that is always full", linkTo("/dev/full")},
                {"the terminal", linkTo("/dev/tty")},
                {"a link to a folder", linkTo(folder.path().string())},
                {"a dangling link", linkTo("absent")},
                {"a link to a path below a file", linkTo("Found.json/absent")}};
    }

    // Returns every location that the library reads, except those that have valid files.
    std::vector<std::string> locations() const {
        return {apiPath("Found.json"),      apiPath("Found_de.json"), supportPath("Found_de.json"),
                lookupPath("Special.json"), lookupPath("Loop.json"),  lookupPath("Special.zip"),
                lookupPath("Found_de.json")};
    }

    void expectOnlyWhatIsRegular() const {
        const Resources resources = {{u"found", section(u"found", u"Found", {})}};
        const Lookups lookups = {{}, {{u"found", lookupSection(u"found", u"Found", {})}}};
        runWatched([&] {
            const LogCapture log(528);
            EXPECT_EQ(DocResourceParser::getResourceFile(u"Found"), resources);
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), lookups);
            for (const LogLine& line : log.lines())
                EXPECT_TRUE(line.message.starts_with("Reading file: ")) << line.message;
        });
    }

    std::vector<std::u16string> namesOf(const auto& products) const {
        std::vector<std::u16string> names;
        for (const auto& product : products)
            names.push_back(product.getName());
        std::ranges::sort(names);
        return names;
    }

private:
    const Pipe pipe_;
};

TEST_F(SpecialFileTest, NonRegularFileAddsNothingInAnyLocation) {
    for (const Special& special : specials()) {
        SCOPED_TRACE(special.what);
        for (const std::string& location : locations())
            special.make(location);
        expectOnlyWhatIsRegular();
        for (const std::string& location : locations())
            std::filesystem::remove(location);
    }
}

TEST_F(SpecialFileTest, LinkToItselfAddsNothingInAnyLocation) {
    for (const std::string& location : locations())
        create_symlink(location, location);
    expectOnlyWhatIsRegular();
}

TEST_F(SpecialFileTest, FollowsLinksToPackagesAndFiles) {
    ZipBytes zip;
    zip.entries.push_back({.name = "Packed.json", .content = ResourceText("packed").str()});
    folder.write("elsewhere.bin", zip.build());
    folder.write("elsewhere.txt", ResourceText("plain").str());
    create_symlink(folder.path() / "elsewhere.bin", lookupPath("Packed.zip"));
    create_symlink("../../../elsewhere.txt", lookupPath("Plain.json"));
    const Lookups expected = {{},
                              {{u"found", lookupSection(u"found", u"Found", {})},
                               {u"packed", lookupSection(u"packed", u"Packed", {})},
                               {u"plain", lookupSection(u"plain", u"Plain", {})}}};
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), expected);
}

TEST_F(SpecialFileTest, ListsNonRegularFilesWithoutOpeningThem) {
    for (const Special& special : specials()) {
        SCOPED_TRACE(special.what);
        special.make(lookupPath("Special.json"));
        special.make(lookupPath("Special.zip"));
        const auto products = DocResourceParser::getAllProducts(
            DocResourceParser::getReferenceRoots()->lookupFolder, {}, u"_de");
        EXPECT_EQ(namesOf(products.jsonProducts),
                  (std::vector<std::u16string>{u"Found", u"Special"}));
        EXPECT_EQ(namesOf(products.zipProducts), std::vector<std::u16string>{u"Special"});
        std::filesystem::remove(lookupPath("Special.json"));
        std::filesystem::remove(lookupPath("Special.zip"));
    }
}

TEST_F(SpecialFileTest, NonFolderHasNoProducts) {
    const std::string lookupFolder = lookupPath("");
    const std::string apiFolder = apiPath("");
    std::filesystem::remove_all(lookupFolder);
    std::filesystem::remove_all(apiFolder);
    for (const Special& special : specials()) {
        if (special.what == std::string("a folder") ||
            special.what == std::string("a link to a folder"))
            continue;
        SCOPED_TRACE(special.what);
        special.make(lookupFolder.substr(0, lookupFolder.size() - 1));
        special.make(apiFolder.substr(0, apiFolder.size() - 1));
        runWatched([] {
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
            EXPECT_TRUE(findResources(u"Found").has_value()) << "the support folder has it";
        });
        std::filesystem::remove(lookupFolder.substr(0, lookupFolder.size() - 1));
        std::filesystem::remove(apiFolder.substr(0, apiFolder.size() - 1));
    }
}

TEST_F(SpecialFileTest, LogsNoContentOfOtherFiles) {
    const std::string secret = "a secret password";
    folder.write("secrets.txt", secret + "\n" + R"({"also": "secret"})");
    folder.write("secrets.json", R"({"productName": ")" + secret + R"("})");
    create_symlink(folder.path() / "secrets.txt", apiPath("Secret.json"));
    create_symlink(folder.path() / "secrets.json", apiPath("Secret_de.json"));
    create_symlink(folder.path() / "secrets.txt", lookupPath("Secret.json"));
    create_symlink(folder.path() / "secrets.txt", lookupPath("Secret.zip"));
    const LogCapture log;
    EXPECT_EQ(findResources(u"Secret"), std::nullopt);
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 1U);
    EXPECT_FALSE(log.messages().empty());
    for (const std::string& message : log.messages()) {
        EXPECT_EQ(message.find("password"), std::string::npos) << message;
        EXPECT_EQ(message.find("also"), std::string::npos) << message;
    }
}

} // namespace
} // namespace docparser_tests
