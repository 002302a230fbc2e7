#include "tests/hostile/ChildProcess.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

// Running out of descriptors, and descriptors that other programs could inherit.
class DescriptorTest : public SystemTest {
protected:
    DescriptorTest() {
        addApi("Orchard.json", resourceText("orchard", {}));
        addLookup("Orchard.json", ResourceText("orchard").str());
        ZipBytes zip;
        zip.entries.push_back({.name = "Packed.json", .content = ResourceText("packed").str()});
        addLookup("Packed.zip", zip.build());
    }

    // The descriptors of a program that this process starts, as `ls -l` prints them.
    static std::string openFilesOfAProgram() {
        const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(
            ::popen("ls -l /proc/self/fd", "re"), ::pclose);
        EXPECT_NE(output, nullptr);
        std::string text;
        std::array<char, 4096> part{};
        while (const std::size_t count = std::fread(part.data(), 1, part.size(), output.get()))
            text.append(part.data(), count);
        EXPECT_NE(text.find("->"), std::string::npos) << "ls listed no descriptors";
        return text;
    }

    void expectNoneOfTheFolder(const std::string& openFiles) const {
        EXPECT_EQ(openFiles.find(folder.path().string()), std::string::npos) << openFiles;
    }

    static void expectAllFound() {
        EXPECT_EQ(findResources(u"Orchard")->size(), 1U);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 2U);
    }
};

#ifndef DOCPARSER_SANITIZED // a sanitizer opens pipes to check whether memory is accessible

// Prevents the process from opening more files.
void allowNoFurtherFile() {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    const int next = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ASSERT_GE(next, 0);
    ::close(next);
    limit.rlim_cur = static_cast<rlim_t>(next);
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
    EXPECT_LT(::open("/dev/null", O_RDONLY | O_CLOEXEC), 0);
}

void allowFilesAgain() {
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
    limit.rlim_cur = limit.rlim_max;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
}

TEST_F(DescriptorTest, FilesAreMissingOnlyWhileNoDescriptorIsLeft) {
    runInChild({}, [](Progress&) {
        expectAllFound();
        const auto lookupFolder = DocResourceParser::getReferenceRoots()->lookupFolder;
        allowNoFurtherFile();
        for (int call = 0; call < 100; ++call) {
            EXPECT_EQ(findResources(u"Orchard"), std::nullopt);
            EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), Lookups());
            const auto products = DocResourceParser::getAllProducts(lookupFolder, {}, u"_en");
            EXPECT_TRUE(products.jsonProducts.empty());
            EXPECT_TRUE(products.zipProducts.empty());
        }
        allowFilesAgain();
        expectAllFound();
    });
}

#endif

TEST_F(DescriptorTest, ProgramStartedWhileAPackageIsOpenDoesNotInheritIt) {
    std::vector<std::string> seen;
    host->onProducts = [&seen] { seen.push_back(openFilesOfAProgram()); };
    expectAllFound();
    ASSERT_EQ(seen.size(), 2U);
    for (const std::string& openFiles : seen)
        expectNoneOfTheFolder(openFiles);
}

TEST_F(DescriptorTest, ProgramsStartedDuringReadsInheritNoFiles) {
    std::atomic<bool> isDone = false;
    constexpr int kReaders = 2;
    std::vector<std::thread> readers;
    readers.reserve(kReaders);
    for (int reader = 0; reader < kReaders; ++reader)
        readers.emplace_back([&isDone] {
            while (!isDone)
                expectAllFound();
        });
    for (int program = 0; program < 20; ++program)
        expectNoneOfTheFolder(openFilesOfAProgram());
    isDone = true;
    for (std::thread& reader : readers)
        reader.join();
}

} // namespace
} // namespace docparser_tests
