#include "tests/hostile/ChildProcess.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Files and folders without permissions, read by an unprivileged user.
class PermissionTest : public SystemTest {
public:
    PermissionTest() {
        setLanguage(u"de");
        addSupport("Orchard.json", resourceText("supported", {}));
        addLookup("Orchard.json", ResourceText("orchard").str());
    }
    ~PermissionTest() override {
        for (const std::string& path : locked_)
            std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

protected:
    void lock(const std::string& path) {
        locked_.push_back(path);
        std::filesystem::permissions(path, std::filesystem::perms::none);
    }

    // Runs a step in a process to which all permissions apply.
    static void runUnprivileged(const std::function<void()>& step) {
        runInChild({}, [&](Progress&) {
            constexpr uid_t kNobody = 65534;
            if (::geteuid() == 0) {
                ASSERT_EQ(::setgid(kNobody), 0);
                ASSERT_EQ(::setuid(kNobody), 0);
            }
            step();
        });
    }

    static void expectOnlyReadings(const LogCapture& log) {
        for (const LogLine& line : log.lines())
            EXPECT_TRUE(line.message.starts_with("Reading file: ")) << line.message;
    }

    const Resources supported = {{u"supported", section(u"supported", u"Orchard", {})}};
    const Lookups lookups = {{}, {{u"orchard", lookupSection(u"orchard", u"Orchard", {})}}};

private:
    std::vector<std::string> locked_;
};

TEST_F(PermissionTest, UnreadableFileCountsAsMissing) {
    ZipBytes zip;
    zip.entries.push_back({.name = "Packed.json", .content = ResourceText("packed").str()});
    addLookup("Packed.zip", zip.build());
    addLookup("Secret.json", ResourceText("secret").str());
    addApi("Orchard.json", resourceText("secret", {}));
    addApi("Orchard_de.json", resourceText("secret", {}));
    for (const std::string& path : {lookupPath("Packed.zip"), lookupPath("Secret.json"),
                                    apiPath("Orchard.json"), apiPath("Orchard_de.json")})
        lock(path);
    runUnprivileged([&] {
        const LogCapture log(528);
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), lookups);
        expectOnlyReadings(log);
    });
}

TEST_F(PermissionTest, UnreadableFolderHasNoFiles) {
    addApi("Orchard.json", resourceText("secret", {}));
    lock(apiPath(""));
    lock(lookupPath(""));
    runUnprivileged([&] {
        const LogCapture log(528);
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), supported);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
        expectOnlyReadings(log);
    });
}

TEST_F(PermissionTest, FolderWithoutSearchPermissionHasNamesButNoContent) {
    const std::string folderPath = lookupPath("");
    lock(folderPath);
    std::filesystem::permissions(folderPath, std::filesystem::perms::owner_read |
                                                 std::filesystem::perms::others_read);
    runUnprivileged([&] {
        const LogCapture log(528);
        const auto products = DocResourceParser::getAllProducts(
            DocResourceParser::getReferenceRoots()->lookupFolder, {}, u"_de");
        EXPECT_EQ(products.jsonProducts.size(), 1U);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
        expectOnlyReadings(log);
    });
}

} // namespace
} // namespace docparser_tests
