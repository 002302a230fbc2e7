#include "docparser/shared/DiagnosticChannel.hpp"

#include "tests/support/LogCapture.hpp"
#include "tests/unit/docparser/AllocationCount.hpp"

#include <boost/log/attributes/attribute_value_set.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/unlocked_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace reference::docparser {
namespace {

using docparser_tests::AllocationCount;
using docparser_tests::LogCapture;
using docparser_tests::LogLine;
using testing::ElementsAre;
using testing::IsEmpty;

// Adds a sink without a lock to the core during its life. The sink passes each record to a
// function.
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

struct MaskCase {
    std::uint32_t mask;
    int severity;
    bool isEnabled;
};

TEST(DiagnosticChannelTest, WritesIfMaskAndSeverityShareOneOfFifteenBits) {
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
        writeDiagnostic(one.severity, "Reading file: ", u"a");
        EXPECT_EQ(log.lines().size(), one.isEnabled ? 1u : 0u) << one.mask << ' ' << one.severity;
    }
}

TEST(DiagnosticChannelTest, WritesPrefixAndSubjectAsOneMessage) {
    const LogCapture log(kTraceSeverity | kProblemSeverity);
    writeDiagnostic(kTraceSeverity, "Reading file: ", u"/srv/P.json");
    writeDiagnostic(kProblemSeverity, "", u"");
    EXPECT_THAT(log.lines(),
                ElementsAre(LogLine{"referenceApi::docparser", 16, "Reading file: /srv/P.json"},
                            LogLine{"referenceApi::docparser", 512, ""}));
}

TEST(DiagnosticChannelTest, WritesAnySubjectAsUtf8) {
    const LogCapture log;
    writeDiagnostic(1, "", u"caf\u00e9 \u6771\u4eac \U0001F333");
    writeDiagnostic(1, "", {u'a', 0xD800, u'b', 0xDC00});
    writeDiagnostic(1, "", {u'a', u'\0', u'\n', u'b'});
    writeDiagnostic(1, "", std::u16string(100'000, u'\u00e9'));
    std::string many;
    for (int i = 0; i < 100'000; ++i)
        many += "\xC3\xA9";
    EXPECT_THAT(log.messages(), ElementsAre("caf\xC3\xA9 \xE6\x9D\xB1\xE4\xBA\xAC \xF0\x9F\x8C\xB3",
                                            "a\xEF\xBF\xBD"
                                            "b\xEF\xBF\xBD",
                                            std::string("a\0\nb", 4), many));
}

TEST(DiagnosticChannelTest, NeitherFormatsAMaskedMessageNorAsksTheCore) {
    const LogCapture log(kTraceSeverity);
    int asked = 0;
    boost::log::core::get()->set_filter([&](const boost::log::attribute_value_set&) {
        ++asked;
        return true;
    });
    const std::u16string subject(1000, u'x');
    const AllocationCount count;
    writeDiagnostic(kProblemSeverity, "Problem: ", subject);
    EXPECT_EQ(count.requests(), 0u);
    EXPECT_EQ(asked, 0);
    writeDiagnostic(kTraceSeverity, "Reading file: ", u"a");
    EXPECT_EQ(asked, 1);
    boost::log::core::get()->reset_filter();
    EXPECT_THAT(log.messages(), ElementsAre("Reading file: a"));
}

TEST(DiagnosticChannelTest, DoesNotFormatAMessageThatTheCoreRefuses) {
    const LogCapture log;
    const std::u16string subject(100'000, u'x');
    boost::log::core::get()->set_filter(
        [](const boost::log::attribute_value_set&) { return false; });
    const AllocationCount count;
    writeDiagnostic(kTraceSeverity, "Reading file: ", subject);
    EXPECT_LT(count.largestBytes(), subject.size());
    boost::log::core::get()->reset_filter();
    boost::log::core::get()->set_logging_enabled(false);
    writeDiagnostic(kTraceSeverity, "Reading file: ", subject);
    EXPECT_LT(count.largestBytes(), subject.size());
    boost::log::core::get()->set_logging_enabled(true);
    EXPECT_THAT(log.lines(), IsEmpty());
}

TEST(DiagnosticChannelTest, PassesExceptionsOfASinkToTheCallerAndStillWorks) {
    const LogCapture log(kTraceSeverity);
    {
        const FunctionSink full([] { throw std::length_error("the disk is full"); });
        EXPECT_THROW(writeDiagnostic(kTraceSeverity, "first", u""), std::length_error);
        EXPECT_NO_THROW(writeDiagnostic(kProblemSeverity, "not enabled", u""));
        EXPECT_THROW(writeDiagnostic(kTraceSeverity, "second", u""), std::length_error);
    }
    // On another thread, which would wait for a lock that is still held.
    std::thread([] { writeDiagnostic(kTraceSeverity, "third", u""); }).join();
    EXPECT_EQ(log.messages().back(), "third");
}

TEST(DiagnosticChannelTest, AcceptsMessagesFromASinkThatHandlesOne) {
    const LogCapture log;
    int depth = 0;
    const FunctionSink echo([&] {
        if (depth != 0)
            return;
        ++depth;
        writeDiagnostic(kTraceSeverity, "from the sink", u"");
        --depth;
    });
    writeDiagnostic(kProblemSeverity, "outer", u"");
    EXPECT_THAT(log.lines(), testing::UnorderedElementsAre(
                                 LogLine{"referenceApi::docparser", 512, "outer"},
                                 LogLine{"referenceApi::docparser", 16, "from the sink"}));
}

} // namespace
} // namespace reference::docparser
