#include "tests/linkage/Plugin.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <barrier>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

using plugin::CaughtAs;

// Loads a plug-in with local symbol visibility; the destructor unloads it.
class Plugin {
public:
    explicit Plugin(const char* file) : handle_(::dlopen(file, RTLD_NOW | RTLD_LOCAL)) {
        if (!handle_)
            throw std::runtime_error(::dlerror());
    }

    template <class Function>
    Function* find(const char* name) const {
        void* const address = ::dlsym(handle_.get(), name);
        if (!address)
            throw std::runtime_error(::dlerror());
        return reinterpret_cast<Function*>(address);
    }

private:
    struct Unload {
        void operator()(void* handle) const noexcept { ::dlclose(handle); }
    };
    std::unique_ptr<void, Unload> handle_;
};

class LinkageTest : public testing::Test {
protected:
    LinkageTest() {
        const std::string section =
            R"("productName":"","helpFolder":"orchard","helpLocation":"","refItems":[])";
        folder.write("docCatalog/referenceapi/Orchard.json",
                     R"({"baseCode":"orchard",)" + section +
                         R"(,"supportPackages":[{"baseCode":"meadow",)" + section + "}]}");
    }

    static std::ptrdiff_t openFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    }

    // The number of memory mappings of the process.
    static std::size_t mappings() {
        std::ifstream maps("/proc/self/maps");
        return static_cast<std::size_t>(std::count(std::istreambuf_iterator<char>(maps), {}, '\n'));
    }

    TemporaryFolder folder;
    const std::string root = folder.path().string();
};

TEST_F(LinkageTest, ExceptionIsCaughtAsEachOfItsTypesInAnotherSharedObject) {
    const Plugin throwing(THROWING_PLUGIN);
    const Plugin catching(CATCHING_PLUGIN);
    auto* const throwIt = throwing.find<plugin::ThrowForAbsentProduct>("throwForAbsentProduct");
    auto* const catchAs = catching.find<plugin::CatchAs>("catchAs");
    for (const CaughtAs type :
         {CaughtAs::DocParserException, CaughtAs::IInternalException, CaughtAs::IException,
          CaughtAs::BoostException, CaughtAs::CloneBase})
        EXPECT_TRUE(catchAs(type, throwIt)) << static_cast<int>(type);
}

TEST_F(LinkageTest, SharedObjectsShareTheirSettings) {
    const Plugin one(THROWING_PLUGIN);
    const Plugin other(CATCHING_PLUGIN);
    EXPECT_EQ(one.find<plugin::CountSections>("countSections")(root.c_str()), 2U);
    EXPECT_EQ(other.find<plugin::CountSections>("countSections")(nullptr), 2U);
}

TEST_F(LinkageTest, ConcurrentFirstCallsAllSucceed) {
    const Plugin plugin(THROWING_PLUGIN);
    auto* const countSections = plugin.find<plugin::CountSections>("countSections");
    constexpr int kThreads = 8;
    std::barrier start(kThreads);
    std::atomic<int> answered = 0;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int thread = 0; thread < kThreads; ++thread)
        threads.emplace_back([&] {
            start.arrive_and_wait();
            if (countSections(root.c_str()) == 2)
                ++answered;
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(answered, kThreads);
}

TEST_F(LinkageTest, RepeatedLoadingAndUnloadingLeaksNothing) {
    const auto useOnce = [this] {
        const Plugin plugin(THROWING_PLUGIN);
        ASSERT_EQ(plugin.find<plugin::CountSections>("countSections")(root.c_str()), 2U);
    };
    for (int load = 0; load < 10; ++load)
        useOnce();
    const auto filesBefore = openFiles();
    const std::size_t mappingsBefore = mappings();
    for (int load = 0; load < 1000; ++load)
        useOnce();
    EXPECT_EQ(openFiles(), filesBefore);
    // The allocator of the C library may add a few mappings.
    EXPECT_LE(mappings(), mappingsBefore + 8);
}

plugin::CountSections* countAtExit = nullptr;
const char* rootAtExit = nullptr;

TEST_F(LinkageTest, CallDuringProcessExitSucceeds) {
    EXPECT_EXIT(
        {
            const Plugin plugin(THROWING_PLUGIN);
            countAtExit = plugin.find<plugin::CountSections>("countSections");
            rootAtExit = root.c_str();
            countAtExit(rootAtExit);
            // Runs before the exit handlers of the library, which was loaded earlier.
            std::atexit([] { ::_exit(countAtExit(rootAtExit) == 2 ? 0 : 1); });
            std::exit(2);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace docparser_tests
