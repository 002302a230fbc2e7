#include "platform/log/DiagnosticLogger.hpp"

#include "tests/support/LogCapture.hpp"

#include <boost/log/attributes/attribute_value_set.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/unlocked_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include <atomic>
#include <functional>
#include <limits>
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

// A filter of the core for as long as it lives; it counts how often the core asks it.
class CoreFilter {
public:
    explicit CoreFilter(bool lets) {
        boost::log::core::get()->set_filter([this, lets](const boost::log::attribute_value_set&) {
            ++asked_;
            return lets;
        });
    }
    ~CoreFilter() { boost::log::core::get()->reset_filter(); }
    CoreFilter(const CoreFilter&) = delete;
    CoreFilter& operator=(const CoreFilter&) = delete;

    int asked() const { return asked_; }

private:
    std::atomic<int> asked_{0};
};

// A sink without a lock that hands each record to a function, for as long as it lives.
class FunctionSink {
public:
    explicit FunctionSink(std::function<void()> consume) : sink_(boost::make_shared<Sink>()) {
        sink_->locked_backend()->onRecord = std::move(consume);
        boost::log::core::get()->add_sink(sink_);
    }
    ~FunctionSink() { boost::log::core::get()->remove_sink(sink_); }
    FunctionSink(const FunctionSink&) = delete;
    FunctionSink& operator=(const FunctionSink&) = delete;

private:
    struct Backend : boost::log::sinks::basic_sink_backend<boost::log::sinks::concurrent_feeding> {
        void consume(const boost::log::record_view&) const { onRecord(); }

        std::function<void()> onRecord;
    };
    using Sink = boost::log::sinks::unlocked_sink<Backend>;

    boost::shared_ptr<Sink> sink_;
};

// A text in memory that may not be read: whoever forms a line of it ends the process.
class UnreadableText {
public:
    UnreadableText()
        : memory_(::mmap(nullptr, kBytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        if (memory_ == MAP_FAILED)
            throw std::runtime_error("no memory to map");
    }
    ~UnreadableText() { ::munmap(memory_, kBytes); }
    UnreadableText(const UnreadableText&) = delete;
    UnreadableText& operator=(const UnreadableText&) = delete;

    std::u16string_view view() const { return {static_cast<const char16_t*>(memory_), 8}; }

private:
    static constexpr std::size_t kBytes = 4096;
    void* memory_;
};

TEST(DiagnosticLoggerTest, IsSilentUntilItsHostSetsAMask) {
    EXPECT_EQ(severityMask(), 0u);
    const basic_diagnostic_logger<char> logger("orchard");
    EXPECT_FALSE(logger.isEnabled(kSeverityTrace));
    EXPECT_FALSE(logger.isEnabled(kSeverityProblem));
}

struct MaskCase {
    std::uint32_t mask;
    int severity;
    bool isEnabled;
};

TEST(DiagnosticLoggerTest, LetsALineThroughWhenMaskAndSeverityShareOneOfFifteenBits) {
    constexpr std::uint32_t all = std::numeric_limits<std::uint32_t>::max();
    constexpr MaskCase cases[] = {
        {0, 16, false},          {0, 0x7fff, false},   {16, 16, true},
        {16, 512, false},        {512, 512, true},     {512, 16, false},
        {528, 16, true},         {528, 512, true},     {16, 17, true},
        {16, 1, false},          {1, 1, true},         {0x4000, 0x4000, true},
        {0x8000, 0x8000, false}, {all, 0x8000, false}, {all, 0x10000, false},
        {all, 0, false},         {all, -1, true},      {all, 1, true},
    };
    for (const MaskCase& one : cases) {
        const LogCapture log(one.mask);
        diagnostic_logger logger("orchard");
        EXPECT_EQ(logger.isEnabled(one.severity), one.isEnabled) << one.mask << ' ' << one.severity;
        logger.write(one.severity, "Reading file: ", u"a");
        EXPECT_EQ(log.lines().size(), one.isEnabled ? 1u : 0u) << one.mask << ' ' << one.severity;
    }
}

TEST(DiagnosticLoggerTest, WritesPrefixAndSubjectAsOneLineOfItsChannel) {
    const LogCapture log(528);
    diagnostic_logger orchard("orchard::reader");
    diagnostic_logger garden("gar\xC3\xA7on");
    orchard.write(kSeverityTrace, "Reading file: ", u"/srv/P.json");
    garden.write(kSeverityProblem, "", u"");
    EXPECT_THAT(log.lines(),
                ElementsAre(LogLine{"orchard::reader", 16, "Reading file: /srv/P.json"},
                            LogLine{"gar\xC3\xA7on", 512, ""}));
}

TEST(DiagnosticLoggerTest, WritesSubjectsAsUtf8AndNeverFailsOnThem) {
    const LogCapture log;
    diagnostic_logger logger("orchard");
    logger.write(1, "", u"caf\u00e9 \u6771\u4eac \U0001F333");
    logger.write(1, "", std::u16string{u'a', 0xD800, u'b', 0xDC00});
    logger.write(1, "", std::u16string{u'a', u'\0', u'\n', u'b'});
    logger.write(1, "", std::u16string(100'000, u'\u00e9'));
    std::string many;
    for (int i = 0; i < 100'000; ++i)
        many += "\xC3\xA9";
    EXPECT_THAT(log.messages(), ElementsAre("caf\xC3\xA9 \xE6\x9D\xB1\xE4\xBA\xAC \xF0\x9F\x8C\xB3",
                                            "a\xEF\xBF\xBD"
                                            "b\xEF\xBF\xBD",
                                            std::string("a\0\nb", 4), many));
}

TEST(DiagnosticLoggerTest, NeitherFormsALineThatTheMaskTurnsDownNorAsksTheCore) {
    const LogCapture log(kSeverityTrace);
    const CoreFilter filter(/*lets=*/true);
    const UnreadableText subject;
    diagnostic_logger logger("orchard");
    logger.write(kSeverityProblem, "Problem: ", subject.view());
    EXPECT_EQ(filter.asked(), 0);
    logger.write(kSeverityTrace, "Reading file: ", u"a");
    EXPECT_EQ(filter.asked(), 1);
    EXPECT_THAT(log.messages(), ElementsAre("Reading file: a"));
}

TEST(DiagnosticLoggerTest, DoesNotFormALineThatTheCoreTurnsDown) {
    const LogCapture log;
    const UnreadableText subject;
    diagnostic_logger logger("orchard");
    {
        const CoreFilter filter(/*lets=*/false);
        logger.write(kSeverityTrace, "Reading file: ", subject.view());
        EXPECT_EQ(filter.asked(), 1);
    }
    boost::log::core::get()->set_logging_enabled(false);
    logger.write(kSeverityTrace, "Reading file: ", subject.view());
    boost::log::core::get()->set_logging_enabled(true);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(DiagnosticLoggerTest, PassesOnWhatASinkThrowsAndWorksAfterwards) {
    const LogCapture log(kSeverityTrace);
    diagnostic_logger logger("orchard");
    {
        const FunctionSink full([] { throw std::length_error("the disk is full"); });
        EXPECT_THROW(logger.write(kSeverityTrace, "first", u""), std::length_error);
        EXPECT_NO_THROW(logger.write(kSeverityProblem, "not enabled", u""));
        EXPECT_THROW(logger.write(kSeverityTrace, "second", u""), std::length_error);
    }
    // From another thread, which a lock left behind would stop.
    std::thread([&] { logger.write(kSeverityTrace, "third", u""); }).join();
    EXPECT_EQ(log.messages().back(), "third");
}

TEST(DiagnosticLoggerTest, TakesLinesFromASinkThatWorksOnItsLines) {
    const LogCapture log;
    diagnostic_logger logger("orchard");
    diagnostic_logger other("garden");
    int depth = 0;
    const FunctionSink echo([&] {
        if (depth != 0)
            return;
        ++depth;
        logger.write(16, "from the sink", u"");
        other.write(16, "from the sink", u"");
        --depth;
    });
    logger.write(512, "outer", u"");
    EXPECT_THAT(log.lines(), testing::UnorderedElementsAre(LogLine{"orchard", 512, "outer"},
                                                           LogLine{"orchard", 16, "from the sink"},
                                                           LogLine{"garden", 16, "from the sink"}));
}

TEST(DiagnosticLoggerTest, TakesLinesFromSeveralThreadsEachWithItsOwnSeverity) {
    constexpr int kLines = 200;
    const LogCapture log;
    diagnostic_logger logger("orchard");
    std::vector<std::thread> threads;
    std::vector<LogLine> expected;
    for (const int severity : {1, 2, 4, 8}) {
        threads.emplace_back([&logger, severity] {
            for (int i = 0; i < kLines; ++i)
                logger.write(severity, "Reading file: ", std::u16string(1, u'a'));
        });
        expected.insert(expected.end(), kLines, {"orchard", severity, "Reading file: a"});
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(log.lines(), testing::UnorderedElementsAreArray(expected));
}

TEST(DiagnosticLoggerTest, LetsTheMaskChangeWhileOthersLog) {
    const LogCapture log(0);
    diagnostic_logger logger("orchard");
    std::thread host([] {
        for (std::uint32_t i = 0; i <= 1000; ++i)
            setSeverityMask(i % 2 == 0 ? 16 : 0);
    });
    for (int i = 0; i < 200; ++i)
        logger.write(16, "Reading file: ", u"a");
    host.join();
    logger.write(16, "last", u"");
    EXPECT_EQ(log.messages().back(), "last");
    EXPECT_EQ(severityMask(), 16u);
}

} // namespace

} // namespace foundation::log
