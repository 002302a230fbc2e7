#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"
#include "tests/system/memory/AllocationCounter.hpp"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace docparser_tests {
namespace {

// A process that calls the library as often as an application does in a working day.
class LongLifeTest : public SystemTest {
protected:
    LongLifeTest() {
        setLanguage(u"de");
        addApi("Good.json", resourceText("orchard", {{"graft.html", "Join trees"}}));
        addApi("Bad.json", R"({"helpFolder": )");
        addApi("Wrong.json", ResourceText("orchard").set("refItems", 0).str());
        addSupport("Kit.json", resourceText("kit", {{"use.html", "Use it"}}));
        addLookup("Plain.json", ResourceText("plain").str());
        addLookup("Bad.json", "[");
        ZipBytes zip;
        zip.entries.push_back({.name = "Packed.json", .content = ResourceText("packed").str()});
        zip.entries.push_back({.name = "Broken.json", .content = "{}", .crc = 1});
        addLookup("Packed.zip", zip.build());
        addLookup("Cut.zip", zip.build().substr(0, 40));
    }

    // Makes ten calls, on valid, damaged and missing files.
    void callTenTimes() const {
        for (const std::u16string product : {u"Good", u"Kit"})
            ASSERT_TRUE(findResources(product).has_value());
        for (const std::u16string product : {u"Bad", u"Wrong", u"Missing"})
            ASSERT_FALSE(findResources(product).has_value());
        ASSERT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), 2U);
        DocResourceParser::setTestProducts({u"orchard", u"vineyard"}, {u"kit"});
        ASSERT_TRUE(DocResourceParser::isProductInstalled(u"kit"));
        DocResourceParser::clearSupportPackageCaches();
        ASSERT_FALSE(DocResourceParser::isProductInstalled(u"kit"));
        host->forgetQuestions();
    }

    void callManyTimes(int calls) const {
        for (int call = 0; call < calls && !HasFailure(); call += 10)
            callTenTimes();
    }

    static std::ptrdiff_t openFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    }

    // Returns the memory of the process, including allocations of C libraries.
    static long residentBytes() {
        std::ifstream statistics("/proc/self/statm");
        long total = 0;
        long resident = 0;
        statistics >> total >> resident;
        return resident * ::sysconf(_SC_PAGESIZE);
    }
};

#ifdef DOCPARSER_SANITIZED // a sanitizer makes each call slower
constexpr int kCalls = 10'000;
#else
constexpr int kCalls = 100'000;
#endif

TEST_F(LongLifeTest, ManyCallsLeakNothing) {
    callManyTimes(kCalls / 20);
    const auto filesBefore = openFiles();
    const std::size_t bytesBefore = liveBytes();
    const long residentBefore = residentBytes();
    callManyTimes(kCalls);
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_EQ(liveBytes(), bytesBefore);
#ifndef DOCPARSER_SANITIZED // a sanitizer keeps released memory, to detect uses after release
    EXPECT_LE(residentBytes(), residentBefore + (1 << 20));
#else
    EXPECT_GT(residentBefore, 0);
#endif
}

} // namespace
} // namespace docparser_tests
