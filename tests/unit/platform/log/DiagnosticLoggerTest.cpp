#include "platform/log/DiagnosticLogger.hpp"

#include "tests/support/LogCapture.hpp"

#include <boost/log/attributes/attribute_value_set.hpp>
#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/sources/record_ostream.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace foundation::log {
namespace {

using docparser_tests::LogCapture;
using docparser_tests::LogLine;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

// Opens a record as a component does, fills it and pushes it.
void write(diagnostic_logger& logger, int severity, const std::string& message) {
    if (boost::log::record record = logger.open_record(severity)) {
        boost::log::record_ostream line(record);
        line << message;
        line.flush();
        boost::log::core::get()->push_record(std::move(record));
    }
}

// Sets a filter of the core during its life.
template <class Filter>
class CoreFilter {
public:
    explicit CoreFilter(Filter filter) { boost::log::core::get()->set_filter(std::move(filter)); }
    ~CoreFilter() { boost::log::core::get()->reset_filter(); }
    CoreFilter(const CoreFilter&) = delete;
    CoreFilter& operator=(const CoreFilter&) = delete;
};

TEST(DiagnosticLoggerTest, HasAnEmptyMaskUntilItsHostSetsOne) {
    EXPECT_EQ(severityMask(), 0u);
    EXPECT_EQ(diagnostic_logger("orchard").mask(), 0u);
}

TEST(DiagnosticLoggerTest, SharesTheMaskOfTheProcess) {
    const std::uint32_t before = severityMask();
    const diagnostic_logger orchard("orchard");
    const diagnostic_logger garden("garden");
    for (const std::uint32_t mask : {16u, 528u, 0xFFFFFFFFu, 0u}) {
        setSeverityMask(mask);
        EXPECT_EQ(severityMask(), mask);
        EXPECT_EQ(orchard.mask(), mask);
        EXPECT_EQ(garden.mask(), mask);
    }
    setSeverityMask(before);
}

TEST(DiagnosticLoggerTest, GivesEachRecordItsChannelAndSeverity) {
    const LogCapture log;
    diagnostic_logger orchard("orchard::reader");
    diagnostic_logger garden("gar\xC3\xA7on");
    write(orchard, kSeverityTrace, "Reading file: /srv/P.json");
    write(garden, kSeverityProblem, "");
    EXPECT_THAT(log.lines(),
                ElementsAre(LogLine{"orchard::reader", 16, "Reading file: /srv/P.json"},
                            LogLine{"gar\xC3\xA7on", 512, ""}));
}

TEST(DiagnosticLoggerTest, OpensRecordsWhateverTheMask) {
    const LogCapture log(/*mask=*/0);
    diagnostic_logger logger("orchard");
    write(logger, kSeverityTrace, "traced");
    EXPECT_THAT(log.messages(), ElementsAre("traced"));
}

TEST(DiagnosticLoggerTest, OpensNoRecordThatTheCoreRefuses) {
    const LogCapture log;
    diagnostic_logger logger("orchard");
    {
        int severity = 0;
        const CoreFilter filter([&](const boost::log::attribute_value_set& values) {
            severity = boost::log::extract_or_default<int>("Severity", values, -1);
            return false;
        });
        EXPECT_FALSE(logger.open_record(kSeverityProblem));
        EXPECT_EQ(severity, kSeverityProblem) << "the severity is set before the core is asked";
    }
    boost::log::core::get()->set_logging_enabled(false);
    EXPECT_FALSE(logger.open_record(kSeverityTrace));
    boost::log::core::get()->set_logging_enabled(true);
    EXPECT_TRUE(logger.open_record(kSeverityTrace));
    EXPECT_THAT(log.lines(), IsEmpty()) << "a record that is not pushed reaches no sink";
}

TEST(DiagnosticLoggerTest, ReleasesItsLockWhenTheCoreThrows) {
    const LogCapture log;
    diagnostic_logger logger("orchard");
    {
        const CoreFilter filter([](const boost::log::attribute_value_set&) -> bool {
            throw std::length_error("the filter is broken");
        });
        EXPECT_THROW(logger.open_record(kSeverityTrace), std::length_error);
    }
    // On another thread, which would wait for a lock that is still held.
    std::thread([&] { write(logger, kSeverityTrace, "after"); }).join();
    EXPECT_THAT(log.messages(), ElementsAre("after"));
}

TEST(DiagnosticLoggerTest, HoldsNoLockWhileARecordIsOpen) {
    const LogCapture log;
    diagnostic_logger logger("orchard");
    const boost::log::record open = logger.open_record(kSeverityProblem);
    std::thread([&] { write(logger, kSeverityTrace, "meanwhile"); }).join();
    EXPECT_THAT(log.messages(), ElementsAre("meanwhile"));
}

TEST(DiagnosticLoggerTest, KeepsTheSeveritiesOfThreadsApart) {
    constexpr int kRecords = 200;
    const LogCapture log;
    diagnostic_logger logger("orchard");
    std::vector<std::thread> threads;
    std::vector<LogLine> expected;
    for (const int severity : {1, 2, 4, 8}) {
        threads.emplace_back([&logger, severity] {
            for (int i = 0; i < kRecords; ++i)
                write(logger, severity, "Reading file: a");
        });
        expected.insert(expected.end(), kRecords, {"orchard", severity, "Reading file: a"});
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(log.lines(), UnorderedElementsAreArray(expected));
}

TEST(DiagnosticLoggerTest, AllowsTheMaskToChangeWhileOthersRead) {
    const std::uint32_t before = severityMask();
    const diagnostic_logger logger("orchard");
    std::thread host([] {
        for (std::uint32_t i = 0; i <= 1000; ++i)
            setSeverityMask(i % 2 == 0 ? 16 : 0);
    });
    for (int i = 0; i < 200; ++i) {
        const std::uint32_t mask = logger.mask();
        EXPECT_TRUE(mask == 16 || mask == 0 || mask == before) << mask;
    }
    host.join();
    EXPECT_EQ(logger.mask(), 16u);
    setSeverityMask(before);
}

} // namespace
} // namespace foundation::log
