#include "tests/hostile/ChildProcess.hpp"
#include "tests/system/SystemTest.hpp"

#include <unistd.h>

#include <atomic>
#include <string>
#include <thread>

namespace docparser_tests {
namespace {

// A relative reference root is resolved against the current folder when a file is opened. Each test
// runs in a child process because it changes that folder.
class WorkingFolderTest : public SystemTest {
protected:
    WorkingFolderTest() {
        for (const std::string name : {"here", "there"}) {
            folder.write(name + "/root/docCatalog/referenceapi/Orchard.json",
                         resourceText(name, {}));
            folder.write(name + "/root/docCatalog/referenceapi_lookup/Orchard.json",
                         ResourceText(name).str());
        }
    }

    void enter(const std::string& name) const {
        ASSERT_EQ(::chdir((folder.path() / name).c_str()), 0);
    }

    static Resources resourcesOf(const std::u16string& name) {
        return {{name, section(name, u"Orchard", {})}};
    }
    static Lookups lookupsOf(const std::u16string& name) {
        return {{}, {{name, lookupSection(name, u"Orchard", {})}}};
    }
};

TEST_F(WorkingFolderTest, RelativeRootStartsAtTheCurrentFolderOfEachCall) {
    runInChild({}, [this](Progress&) {
        DocResourceParser::setReferenceRoot(u"root");
        enter("here");
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), resourcesOf(u"here"));
        enter("there");
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), resourcesOf(u"there"));
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), lookupsOf(u"there"));
    });
}

TEST_F(WorkingFolderTest, ThreadThatChangesTheFolderDoesNotMixFiles) {
    runInChild({}, [this](Progress&) {
        DocResourceParser::setReferenceRoot(u"root");
        enter("here");
        std::atomic<bool> isDone = false;
        std::thread changer([&] {
            while (!isDone) {
                enter("there");
                enter("here");
            }
        });
        for (int read = 0; read < 1000; ++read) {
            const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
            EXPECT_TRUE(resources == resourcesOf(u"here") || resources == resourcesOf(u"there"));
            const Lookups lookups = DocResourceParser::getResourceLookupFiles();
            EXPECT_TRUE(lookups == lookupsOf(u"here") || lookups == lookupsOf(u"there"));
        }
        isDone = true;
        changer.join();
    });
}

} // namespace
} // namespace docparser_tests
