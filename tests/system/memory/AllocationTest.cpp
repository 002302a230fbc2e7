#include "tests/system/SystemTest.hpp"
#include "tests/system/memory/AllocationCounter.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parse.hpp>
#include <boost/log/core/core.hpp>

#include <string>

namespace docparser_tests {
namespace {

using testing::AllOf;
using testing::Ge;
using testing::Le;

// A text of this length is a large allocation, both in bytes and in UTF-16.
constexpr std::size_t kTextLength = 2 * kLargeBytes;

std::string longText(char filling) {
    return std::string(kTextLength, filling);
}

// Returns the number of large allocations of a step.
template <class Step>
std::size_t largeAllocations(Step step) {
    const AllocationObserver observer;
    step();
    return observer.largeCount();
}

void readOrchard() {
    DocResourceParser::getResourceFile(u"Orchard");
}

void readLookups() {
    DocResourceParser::getResourceLookupFiles();
}

// Returns the least number of large allocations that turn a file with one long purpose into a
// record: the text of the file, those of the parser, and those that decode the purpose.
std::size_t leastLargeAllocations(const std::string& text, const std::string& purpose) {
    const std::size_t parsing = largeAllocations([&] {
        boost::json::monotonic_resource arena(1024);
        boost::json::parse(text, &arena);
    });
    const boost::json::value value(purpose);
    const std::size_t decoding = largeAllocations([&] {
        DocResourceParser::ParsingTools::getFluString(
            value, DocResourceParser::ParsingTools::StringParsingType::Utf8);
    });
    return 1 + parsing + decoding;
}

class AllocationTest : public SystemTest {
protected:
    // Returns the number of large allocations for reading the product in the language "de".
    std::size_t costOfOverlay() const {
        host->language = u"de";
        return largeAllocations(readOrchard);
    }
    // Returns the number of large allocations for reading one file as an English one.
    std::size_t costAlone(const std::string& text) const {
        addApi("Alone.json", text);
        host->language = u"en";
        return largeAllocations([] { DocResourceParser::getResourceFile(u"Alone"); });
    }
};

TEST_F(AllocationTest, ReadsFileIntoOneAllocationOfItsSize) {
    const std::string text = resourceText("orchard", {{"graft.html", longText('x')}});
    addApi("Orchard.json", text);
    const AllocationObserver observer;
    readOrchard();
    // A string has one more byte for its terminating NUL.
    EXPECT_THAT(observer.firstLargeSize(), AllOf(Ge(text.size()), Le(text.size() + 1)));
}

TEST_F(AllocationTest, RecordIsNeverCopied) {
    const std::string purpose = longText('x');
    const std::string text = resourceText("orchard", {{"graft.html", purpose}});
    addApi("Orchard.json", text);
    EXPECT_EQ(largeAllocations(readOrchard), leastLargeAllocations(text, purpose));
}

TEST_F(AllocationTest, RecordOfSupportPackageIsNeverCopied) {
    const std::string purpose = longText('x');
    ResourceText text("orchard");
    text.addSupportPackage(ResourceText("kit").add(item("use.html", purpose)));
    addSupport("Orchard.json", text.str());
    EXPECT_EQ(largeAllocations(readOrchard), leastLargeAllocations(text.str(), purpose));
}

TEST_F(AllocationTest, OverlayMovesRecordsOfBothFiles) {
    const std::string english =
        resourceText("orchard", {{"graft.html", longText('e')}, {"prune.html", longText('e')}});
    const std::string german =
        resourceText("orchard", {{"prune.html", longText('d')}, {"water.html", longText('d')}});
    const std::size_t apart = costAlone(english) + costAlone(german);
    addApi("Orchard.json", english);
    addApi("Orchard_de.json", german);
    EXPECT_EQ(costOfOverlay(), apart);
}

TEST_F(AllocationTest, OverlayCopiesAtMostSectionsThatOnlyTheTranslationHas) {
    const std::string english = resourceText("orchard", {{"graft.html", longText('e')}});
    const std::string german = resourceText("german", {{"prune.html", longText('d')}});
    const std::size_t apart = costAlone(english) + costAlone(german);
    addApi("Orchard.json", english);
    addApi("Orchard_de.json", german);
    EXPECT_THAT(costOfOverlay(), AllOf(Ge(apart), Le(apart + 1)));
}

TEST_F(AllocationTest, LookupRecordIsCopiedAtMostOnce) {
    const std::string purpose = longText('x');
    const std::string text =
        ResourceText("orchard").add(lookupItem("graft", "g.html", purpose)).str();
    addLookup("Orchard.json", text);
    const std::size_t least = leastLargeAllocations(text, purpose);
    EXPECT_THAT(largeAllocations(readLookups), AllOf(Ge(least), Le(least + 1)));
}

TEST_F(AllocationTest, MergeMovesTheNamesItAdds) {
    const std::string purpose = longText('x');
    const std::string first =
        ResourceText("orchard").add(lookupItem("graft", "g.html", purpose)).str();
    const std::string second =
        ResourceText("orchard").add(lookupItem("prune", "p.html", purpose)).str();
    setLanguage(u"de");
    addLookup("Orchard.json", first);
    const std::size_t firstAlone = largeAllocations(readLookups);
    addLookup("Orchard_de.json", second);
    EXPECT_EQ(largeAllocations(readLookups), firstAlone + leastLargeAllocations(second, purpose));
}

TEST_F(AllocationTest, KeepsNoMemoryAfterTheResultIsDestroyed) {
    host->languages.push_back(u"de");
    addApi("Orchard.json", resourceText("orchard", {{"graft.html", longText('e')}}));
    addApi("Orchard_de.json", resourceText("orchard", {{"prune.html", longText('d')}}));
    addApi("Damaged.json", resourceText("orchard", {{"graft.html", longText('x')}}) + "x");
    addLookup("Orchard.json", ResourceText("orchard").add(lookupItem("n", "h", "p")).str());
    host->language = u"de";
    const auto useAll = [] {
        readOrchard();
        readLookups();
        findResources(u"Damaged");
        findResources(u"Absent");
    };
    useAll(); // fills what stays allocated, such as the caches of the settings
    host->forgetQuestions();
    const std::size_t before = liveBytes();
    useAll();
    host->forgetQuestions();
    EXPECT_EQ(liveBytes(), before);
}

TEST_F(AllocationTest, ReleasesTheTextBeforeBuildingRecords) {
    ResourceText many("orchard");
    for (int number = 0; number < 5000; ++number)
        many.add(item("page" + std::to_string(number) + ".html", std::string(400, 'x')));
    const std::string text = many.str();
    addApi("Orchard.json", text);
    readOrchard();

    boost::json::monotonic_resource arena(1024);
    const std::size_t beforeParsing = liveBytes();
    const boost::json::value document = boost::json::parse(text, &arena);
    const std::size_t documentBytes = liveBytes() - beforeParsing;

    const AllocationObserver observer;
    const std::size_t beforeReading = liveBytes();
    const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
    const std::size_t recordBytes = liveBytes() - beforeReading;

    ASSERT_GT(recordBytes, 2 * text.size()) << "memory does not peak while records are built";
    EXPECT_LT(observer.peakBytes(), documentBytes + recordBytes + text.size() / 2);
}

TEST_F(AllocationTest, FileOverTheLimitTakesNoMemory) {
    addApi("Orchard.json", resourceText("orchard", {{"graft.html", longText('x')}}));
    platform::setReadLimits({.fileBytes = kLargeBytes});
    EXPECT_EQ(largeAllocations([] { findResources(u"Orchard"); }), 0U);
}

TEST_F(AllocationTest, RejectedLineIsNeverFormatted) {
    // The name is so long that formatting a line is a large allocation.
    const std::u16string product(kTextLength, u'x');
    const auto ask = [&] { findResources(product); };
    const std::size_t masked = largeAllocations(ask);

    std::size_t withoutCore = 0;
    std::size_t logged = 0;
    {
        const LogCapture log(528);
        boost::log::core::get()->set_logging_enabled(false);
        withoutCore = largeAllocations(ask);
        boost::log::core::get()->set_logging_enabled(true);
        logged = largeAllocations(ask);
    }
    EXPECT_EQ(withoutCore, masked);
    EXPECT_GE(logged, masked + 3); // two files and the exception
}

} // namespace
} // namespace docparser_tests
