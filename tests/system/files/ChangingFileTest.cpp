#include "tests/system/SystemTest.hpp"

#include <algorithm>
#include <atomic>
#include <exception>
#include <filesystem>
#include <functional>
#include <set>
#include <string>
#include <thread>

namespace docparser_tests {
namespace {

// Repeats a step on its own thread until it is destroyed.
class Meanwhile {
public:
    explicit Meanwhile(std::function<void()> step)
        : thread_([this, step = std::move(step)] {
              while (!isDone_)
                  attempt(step);
          }) {}
    ~Meanwhile() {
        isDone_ = true;
        thread_.join();
    }
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

private:
    // Windows does not change files that another thread has open; a later attempt succeeds.
    static void attempt(const std::function<void()>& step) {
#ifdef _WIN32
        try {
            step();
        } catch (const std::exception&) {
        }
#else
        step();
#endif
    }

    std::atomic<bool> isDone_ = false;
    std::thread thread_;
};

// Files and folders that another thread changes while they are read.
class ChangingFileTest : public SystemTest {
protected:
    static constexpr int kReads = 400;

    // Returns a text that takes several reads, so that the file can change between them.
    static std::string largeText(const std::string& purpose) {
        return resourceText("orchard", {{"graft.html", purpose}}) + std::string(300'000, ' ');
    }
    static Resources resourcesOf(const std::u16string& purpose) {
        return {{u"orchard", section(u"orchard", u"Orchard", {{u"graft.html", purpose}})}};
    }
    static std::set<std::u16string> namesOf(const auto& products) {
        std::set<std::u16string> names;
        for (const auto& product : products)
            names.insert(product.getName());
        return names;
    }
    static auto productsOfLookupFolder() {
        return DocResourceParser::getAllProducts(
            DocResourceParser::getReferenceRoots()->lookupFolder, {u"_de"}, u"_de");
    }
};

TEST_F(ChangingFileTest, ReadsShrinkingAndGrowingFileCompletelyOrNotAtAll) {
    const std::string text = largeText("Join trees");
    addApi("Orchard.json", text);
    const std::string file = apiPath("Orchard.json");
    const Meanwhile writer([&] {
        std::filesystem::resize_file(file, text.size() / 3);
        addApi("Orchard.json", text);
    });
    for (int read = 0; read < kReads; ++read) {
        const auto resources = findResources(u"Orchard");
        ASSERT_TRUE(!resources || *resources == resourcesOf(u"Join trees"));
    }
}

TEST_F(ChangingFileTest, ReadsOldOrNewContentOfReplacedFile) {
    addApi("Orchard.json", largeText("old"));
    folder.write("old.json", largeText("old"));
    folder.write("new.json", largeText("new"));
    const Meanwhile writer([&] {
        for (const std::string version : {"new.json", "old.json"}) {
            std::filesystem::remove(folder.path() / "next");
            std::filesystem::create_hard_link(folder.path() / version, folder.path() / "next");
            std::filesystem::rename(folder.path() / "next", apiPath("Orchard.json"));
        }
    });
    for (int read = 0; read < kReads; ++read) {
        const auto resources = findResources(u"Orchard");
        ASSERT_TRUE(resources == resourcesOf(u"old") || resources == resourcesOf(u"new"));
    }
}

TEST_F(ChangingFileTest, RemovedFileIsReadCompletelyOrMissing) {
    const std::string text = largeText("Join trees");
    const Meanwhile writer([&] {
        addApi("Orchard.json", text);
        std::filesystem::remove(apiPath("Orchard.json"));
    });
    for (int read = 0; read < kReads; ++read) {
        const auto resources = findResources(u"Orchard");
        ASSERT_TRUE(!resources || *resources == resourcesOf(u"Join trees"));
    }
}

TEST_F(ChangingFileTest, ListsEveryFileThatStays) {
    const std::set<std::u16string> staying = {u"First", u"Second", u"Third"};
    for (const std::string name : {"First", "Second", "Third"})
        addLookup(name + ".json", ResourceText(name).str());
    int next = 0;
    const Meanwhile writer([&] {
        const std::string name = "Passing" + std::to_string(next++ % 50);
        addLookup(name + ".json", ResourceText("passing").str());
        std::filesystem::remove(lookupPath(name + ".json"));
    });
    for (int read = 0; read < kReads; ++read) {
        const std::set<std::u16string> listed = namesOf(productsOfLookupFolder().jsonProducts);
        ASSERT_TRUE(std::ranges::includes(listed, staying));
        const Lookups lookups = DocResourceParser::getResourceLookupFiles();
        ASSERT_GE(lookups.notInstalled.size(), staying.size());
    }
}

TEST_F(ChangingFileTest, RemovedFolderYieldsWhatWasFoundBefore) {
    const std::string lookupFolder = lookupPath("");
    const std::set<std::u16string> possible = {u"First", u"Second"};
    const Lookups whole = {{},
                           {{u"First", lookupSection(u"First", u"First", {})},
                            {u"Second", lookupSection(u"Second", u"Second", {})}}};
    const Meanwhile writer([&] {
        for (const std::string name : {"First", "Second"})
            addLookup(name + ".json", ResourceText(name).str());
        for (const std::string name : {"First.json", "Second.json", ""})
            std::filesystem::remove(lookupPath(name));
    });
    for (int read = 0; read < kReads; ++read) {
        const std::set<std::u16string> listed = namesOf(productsOfLookupFolder().jsonProducts);
        ASSERT_TRUE(std::ranges::includes(possible, listed));
        const Lookups lookups = DocResourceParser::getResourceLookupFiles();
        for (const auto& [key, found] : lookups.notInstalled)
            ASSERT_TRUE(whole.notInstalled.at(key) == found);
    }
}

} // namespace
} // namespace docparser_tests
