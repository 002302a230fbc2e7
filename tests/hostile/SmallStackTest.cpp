#include "tests/hostile/ChildProcess.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <pthread.h>

#include <functional>
#include <string>

namespace docparser_tests {
namespace {

// Calls on a thread with a small stack. Sanitizers need more because they guard local variables.
class SmallStackTest : public SystemTest {
protected:
    static constexpr std::size_t kStackBytes = kIsSanitized ? 1'048'576 : 65'536;

    static void run(const std::function<void()>& step) {
        pthread_attr_t attributes;
        ASSERT_EQ(pthread_attr_init(&attributes), 0);
        ASSERT_EQ(pthread_attr_setstacksize(&attributes, kStackBytes), 0);
        const auto call = [](void* argument) -> void* {
            (*static_cast<const std::function<void()>*>(argument))();
            return nullptr;
        };
        pthread_t thread{};
        std::function<void()> copy = step;
        ASSERT_EQ(pthread_create(&thread, &attributes, call, &copy), 0);
        ASSERT_EQ(pthread_join(thread, nullptr), 0);
        pthread_attr_destroy(&attributes);
    }

    // A resource file with nested arrays under an unknown key. The object of the file is the first
    // level of nesting.
    static std::string nested(std::size_t levels) {
        std::string text = resourceText("orchard", {});
        const std::string value = std::string(levels - 1, '[') + std::string(levels - 1, ']');
        return text.insert(1, "\"unknown\":" + value + ",");
    }
};

TEST_F(SmallStackTest, NestedDocumentsNeedLittleStack) {
    addApi("Level32.json", nested(32));
    addApi("Level33.json", nested(33));
    addApi("Brackets.json", std::string(100'000, '['));
    addApi("Objects.json", nested(100'000));
    std::vector<bool> isFound;
    run([&] {
        for (const std::u16string product : {u"Level32", u"Level33", u"Brackets", u"Objects"})
            isFound.push_back(findResources(product).has_value());
    });
    EXPECT_EQ(isFound, std::vector<bool>({true, false, false, false}));
}

TEST_F(SmallStackTest, LocatesAnErrorInANestedDocument) {
    // The error comes last, so the search for its pointer passes through all levels.
    std::string text = resourceText("orchard", {});
    const std::string deepest = std::string(31, '[') + std::string(31, ']');
    text.insert(1, "\"unknown\":" + deepest + ",");
    text.replace(text.rfind("[]"), 2, "[0]");
    addApi("Orchard.json", text);
    bool isFound = true;
    run([&] { isFound = findResources(u"Orchard").has_value(); });
    EXPECT_FALSE(isFound);
}

TEST_F(SmallStackTest, ReadsPackages) {
    ZipBytes zip;
    for (const std::string name : {"orchard", "cellar"}) {
        ZipEntryBytes& entry = zip.entries.emplace_back();
        entry.name = std::string(30'000, '/') + name + ".json";
        entry.content = ResourceText(name).str();
        entry.method = kDeflated;
    }
    zip.entries.emplace_back().name = std::string(60'000, 'x');
    addLookup("Estate.zip", zip.build());
    std::size_t sections = 0;
    run([&] { sections = DocResourceParser::getResourceLookupFiles().notInstalled.size(); });
    EXPECT_EQ(sections, 2U);
}

} // namespace
} // namespace docparser_tests
