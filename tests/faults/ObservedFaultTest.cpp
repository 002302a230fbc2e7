#include "docparser/account/LoadAccount.hpp"
#include "tests/faults/FaultTest.hpp"
#include "tests/faults/FileFaults.hpp"

#include <boost/log/attributes/value_extraction.hpp>
#include <boost/log/core/core.hpp>
#include <boost/log/core/record_view.hpp>
#include <boost/log/sinks/basic_sink_backend.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/smart_ptr/make_shared_object.hpp>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::SectionAccount;
using reference::docparser::SectionFate;
using testing::ElementsAre;
using testing::Field;

// Greater than the number of calls of any operation.
constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// The log as one string with enough capacity that it never allocates under faults.
class LogString {
public:
    LogString()
        : backend_(boost::make_shared<Backend>()),
          frontend_(boost::make_shared<Frontend>(backend_)) {
        backend_->text.reserve(1 << 16);
        boost::log::core::get()->add_sink(frontend_);
        foundation::log::setSeverityMask(528);
    }
    ~LogString() { boost::log::core::get()->remove_sink(frontend_); }
    LogString(const LogString&) = delete;
    LogString& operator=(const LogString&) = delete;

    const std::string& text() const { return backend_->text; }
    void clear() { backend_->text.clear(); }

private:
    struct Backend
        : boost::log::sinks::basic_sink_backend<boost::log::sinks::synchronized_feeding> {
        void consume(const boost::log::record_view& record) {
            if (const auto message = boost::log::extract<std::string>("Message", record))
                text.append(*message).append(1, '\n');
        }
        std::string text;
    };
    using Frontend = boost::log::sinks::synchronous_sink<Backend>;

    boost::shared_ptr<Backend> backend_;
    boost::shared_ptr<Frontend> frontend_;
};

// Everything that a caller, a log sink and the host observe of one call.
template <class Result>
struct Seen {
    std::optional<Result> result;
    Ending ending;
    std::string log;
    std::vector<std::string> questions;

    bool operator==(const Seen&) const = default;

    friend void PrintTo(const Seen& seen, std::ostream* out) {
        *out << "ending " << static_cast<int>(seen.ending) << ", questions "
             << testing::PrintToString(seen.questions) << ", log:\n"
             << seen.log;
    }
};

class ObservedFaultTest : public FaultTest {
protected:
    // Runs the operation with its first call failing, then with its second, until no call fails.
    // Returns the observations that differ from a run without faults, consecutive equal ones once.
    template <class Result, class Arm>
    std::vector<Seen<Result>> failEach(const std::function<Result()>& act, Arm arm) {
        const auto attemptAct = [&](auto&& fault) {
            reset();
            log_.clear();
            Outcome<Result> outcome;
            bool hasFailed = false;
            {
                const auto inForce = fault();
                outcome = attempt(act);
                hasFailed = inForce.failures() > 0;
            }
            return std::pair(Seen<Result>{std::move(outcome.result), outcome.ending, log_.text(),
                                          host->questions()},
                             hasFailed);
        };
        const Seen<Result> whole = attemptAct([&] { return arm(kNever); }).first;
        std::vector<Seen<Result>> differing;
        for (std::size_t nth = 1;; ++nth) {
            auto [seen, hasFailed] = attemptAct([&] { return arm(nth); });
            if (!hasFailed)
                return differing;
            if (seen != whole && (differing.empty() || seen != differing.back()))
                differing.push_back(std::move(seen));
        }
    }

    // A fault has the same effect with and without an account, and a fault in a call that only the
    // account makes has none.
    template <class Result, class Arm>
    void expectSameWithAndWithoutScope(const std::function<Result()>& act, Arm arm) {
        const std::function<Result()> recorded = [&] {
            LoadAccount account;
            const LoadAccount::Scope scope(account);
            return act();
        };
        // Initialises what the process creates only once.
        reset();
        static_cast<void>(attempt(recorded));
        const auto without = failEach<Result>(act, arm);
        const auto with = failEach<Result>(recorded, arm);
        EXPECT_FALSE(without.empty());
        EXPECT_EQ(with, without);
    }

    template <class Result>
    void failEachAllocationBothWays(const std::function<Result()>& act) {
        for (const Repetition repetition : {Repetition::Once, Repetition::FromThenOn}) {
            SCOPED_TRACE(repetition == Repetition::Once ? "once" : "from then on");
            expectSameWithAndWithoutScope<Result>(
                act, [&](std::size_t nth) { return AllocationFaults(nth, repetition); });
        }
    }

    template <class Result>
    void failEachFileCallBothWays(const std::function<Result()>& act,
                                  std::initializer_list<FileCall> calls) {
        for (const FileCall call : calls) {
            for (const int error : {EIO, ENOENT}) {
                SCOPED_TRACE(testing::Message()
                             << "call " << static_cast<int>(call) << ", error " << error);
                expectSameWithAndWithoutScope<Result>(act, [&](std::size_t nth) {
                    return FileFaults(call, error, nth, Repetition::Once);
                });
            }
        }
    }

    // Runs the operation once and returns its account and outcome.
    template <class Result>
    static std::pair<LoadAccount, Outcome<Result>> recorded(const std::function<Result()>& act) {
        std::pair<LoadAccount, Outcome<Result>> run;
        const LoadAccount::Scope scope(run.first);
        run.second = attempt(act);
        return run;
    }

    // Calls judge(account, outcome) for each allocation that fails, until none fails.
    template <class Result, class Judge>
    void failEachAllocationRecorded(const std::function<Result()>& act, Judge judge) {
        bool hasFailed = true;
        for (std::size_t nth = 1; hasFailed; ++nth) {
            SCOPED_TRACE(testing::Message() << "allocation " << nth);
            reset();
            std::pair<LoadAccount, Outcome<Result>> run;
            {
                const AllocationFaults faults(nth, Repetition::Once);
                run = recorded(act);
                hasFailed = faults.failures() > 0;
            }
            judge(run.first, run.second);
        }
    }

    const std::function<Resources()> readResources = [] {
        return DocResourceParser::getResourceFile(kProduct);
    };
    const std::function<Resources()> readSupportResources = [] {
        return DocResourceParser::getResourceFile(kSupportProduct);
    };
    const std::function<Lookups()> readLookups = [] {
        return DocResourceParser::getResourceLookupFiles();
    };

private:
    LogString log_;
};

TEST_F(ObservedFaultTest, AccountDoesNotChangeResourcesWhicheverAllocationFails) {
    failEachAllocationBothWays(readResources);
    failEachAllocationBothWays(readSupportResources);
}

TEST_F(ObservedFaultTest, AccountDoesNotChangeLookupsWhicheverAllocationFails) {
    failEachAllocationBothWays(readLookups);
}

TEST_F(ObservedFaultTest, AccountDoesNotChangeResourcesWhicheverFileCallFails) {
    const auto calls = {FileCall::Open, FileCall::Status, FileCall::Read};
    failEachFileCallBothWays(readResources, calls);
    failEachFileCallBothWays(readSupportResources, calls);
}

TEST_F(ObservedFaultTest, AccountDoesNotChangeLookupsWhicheverFileCallFails) {
    failEachFileCallBothWays(readLookups, {FileCall::Open, FileCall::Status, FileCall::Read,
                                           FileCall::OpenFolder, FileCall::ReadFolder});
}

TEST_F(ObservedFaultTest, AccountOutOfMemoryIsMarkedIncompleteAndLosesNoRecords) {
    const std::pair<LoadAccount, Outcome<Lookups>> whole = recorded(readLookups);
    ASSERT_TRUE(whole.first.isComplete);
    std::size_t incomplete = 0;
    failEachAllocationRecorded<Lookups>(
        readLookups, [&](const LoadAccount& account, const Outcome<Lookups>& outcome) {
            if (account.isComplete)
                return;
            ++incomplete;
            // A failed allocation of the recorder affects only the account, which then ends.
            EXPECT_EQ(outcome.result, whole.second.result);
            EXPECT_NE(account.files, whole.first.files);
        });
    EXPECT_GT(incomplete, 50U);
}

TEST_F(ObservedFaultTest, AccountShowsWhichSectionsWerePlacedBeforeMemoryRanOut) {
    const Resources firstSectionOnly = partialResources().at(1);
    std::size_t partial = 0;
    failEachAllocationRecorded<Resources>(
        readResources, [&](const LoadAccount& account, const Outcome<Resources>& outcome) {
            if (!account.isComplete || outcome.result != firstSectionOnly)
                return;
            ++partial;
            const FileAccount& translation = account.files.at(1);
            EXPECT_EQ(translation.fate, Fate::Failed);
            EXPECT_EQ(translation.reason, "out of memory");
            EXPECT_THAT(translation.sections,
                        ElementsAre(Field(&SectionAccount::fate, SectionFate::Overlay),
                                    Field(&SectionAccount::fate, SectionFate::Unused)));
        });
    EXPECT_GT(partial, 0U);
}

} // namespace
} // namespace docparser_tests
