#include "tests/faults/FaultTest.hpp"

#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <optional>
#include <utility>

namespace docparser_tests {
namespace {

using reference::docparser::ProductLists;
using testing::AnyOf;
using testing::Contains;

// Makes the library format every log record and discards the records.
class DiscardedLog {
public:
    DiscardedLog() : frontend_(boost::make_shared<Frontend>()) {
        boost::log::core::get()->add_sink(frontend_);
        foundation::log::setSeverityMask(528);
    }
    ~DiscardedLog() { boost::log::core::get()->remove_sink(frontend_); }
    DiscardedLog(const DiscardedLog&) = delete;
    DiscardedLog& operator=(const DiscardedLog&) = delete;

private:
    struct Backend
        : boost::log::sinks::basic_sink_backend<boost::log::sinks::synchronized_feeding> {
        void consume(const boost::log::record_view&) {}
    };
    using Frontend = boost::log::sinks::synchronous_sink<Backend>;

    boost::shared_ptr<Frontend> frontend_;
};

class RetrievalAllocationFaultTest : public FaultTest {
protected:
    Operation<Resources> readResources(const std::u16string& product,
                                       const std::vector<Resources>& allowed) const {
        const Resources whole = DocResourceParser::getResourceFile(product);
        return operation<Resources>(
            [product] { return DocResourceParser::getResourceFile(product); },
            [product, whole, allowed](const Outcome<Resources>& outcome) {
                EXPECT_THAT(outcome.ending,
                            AnyOf(Ending::Result, Ending::BadAlloc, Ending::DocParserException));
                if (outcome.result) {
                    EXPECT_THAT(allowed, Contains(*outcome.result));
                }
                EXPECT_EQ(DocResourceParser::getResourceFile(product), whole) << "the next call";
            });
    }

    Operation<Lookups> readLookups() const {
        const std::vector<Lookups> parts = separateLookups();
        const Lookups whole = DocResourceParser::getResourceLookupFiles();
        return operation<Lookups>([] { return DocResourceParser::getResourceLookupFiles(); },
                                  [parts, whole](const Outcome<Lookups>& outcome) {
                                      EXPECT_THAT(outcome.ending,
                                                  AnyOf(Ending::Result, Ending::BadAlloc));
                                      if (!outcome.result)
                                          return;
                                      EXPECT_TRUE(isMadeOf(*outcome.result, parts));
                                      for (const auto& [key, section] : outcome.result->installed)
                                          EXPECT_TRUE(whole.installed.contains(key));
                                  });
    }
};

TEST_F(RetrievalAllocationFaultTest, ResourcesAreCompleteOrLackOnlyPartsThatFailedToAllocate) {
    EXPECT_GT(failEachAllocation(readResources(kProduct, partialResources())), 100U);
}

TEST_F(RetrievalAllocationFaultTest, LanguageFileAloneIsReturnedIfTheEnglishFileRunsOutOfMemory) {
    const std::vector<Resources> allowed = partialResources();
    addApi("Orchard keeping.json", "");
    const Resources languageAlone = DocResourceParser::getResourceFile(kProduct);
    ASSERT_THAT(allowed, Contains(languageAlone));
    partialResources(); // restores the English file

    bool isReturned = false;
    auto reading = readResources(kProduct, allowed);
    reading.judge = [&](const Outcome<Resources>& outcome) {
        isReturned = isReturned || outcome.result == languageAlone;
    };
    failEachAllocation(reading);
    EXPECT_TRUE(isReturned);
}

TEST_F(RetrievalAllocationFaultTest, SupportPackageResourcesAreCompleteOrNotFound) {
    const Resources whole = DocResourceParser::getResourceFile(kSupportProduct);
    EXPECT_GT(failEachAllocation(readResources(kSupportProduct, {whole})),
              kReachesLibraries ? 90U : 60U);
}

TEST_F(RetrievalAllocationFaultTest, ResourcesSurviveALogThatRunsOutOfMemory) {
    const DiscardedLog log;
    EXPECT_GT(failEachAllocation(readResources(kProduct, partialResources())), 100U);
}

TEST_F(RetrievalAllocationFaultTest, MissingProductIsNeverFound) {
    const DiscardedLog log;
    const auto asking = operation<bool>(
        [] {
            try {
                DocResourceParser::getResourceFile(u"No such product");
                return true;
            } catch (const reference::docparser::DocParserException& exception) {
                return exception.getProductName() != u"No such product";
            }
        },
        [](const Outcome<bool>& outcome) {
            if (outcome.ending != Ending::BadAlloc) {
                EXPECT_EQ(outcome.result, false);
            }
        });
    EXPECT_GT(failEachAllocation(asking), 10U);
}

TEST_F(RetrievalAllocationFaultTest, LookupsContainOnlyCompleteRecords) {
    EXPECT_GT(failEachAllocation(readLookups()), kReachesLibraries ? 500U : 200U);
}

TEST_F(RetrievalAllocationFaultTest, LookupsSurviveALogThatRunsOutOfMemory) {
    const DiscardedLog log;
    EXPECT_GT(failEachAllocation(readLookups()), kReachesLibraries ? 500U : 200U);
}

TEST_F(RetrievalAllocationFaultTest, ProductListsKeepWhatWasFoundBeforeTheFailure) {
    const std::u16string where = lookupFolder();
    const std::vector<std::u16string> suffixes = {u"_zh_Hant_TW", u"_de"};
    std::optional<ProductLists> found;
    const auto find = [&] {
        found.emplace(DocResourceParser::getAllProducts(where, suffixes, suffixes.front()));
        return true;
    };
    find();
    const auto whole = describe(*found);
    const auto finding = operation<bool>(find, [&](const Outcome<bool>& outcome) {
        EXPECT_EQ(outcome.ending, Ending::Result) << "getAllProducts() threw";
        EXPECT_TRUE(isStartOf(describe(*found).first, whole.first));
        EXPECT_TRUE(isStartOf(describe(*found).second, whole.second));
    });
    EXPECT_GT(failEachAllocation(finding), 10U);
    EXPECT_EQ(describe(*found), whole);
}

} // namespace
} // namespace docparser_tests
