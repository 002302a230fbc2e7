#include "tests/hostile/ChildProcess.hpp"
#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <sys/time.h>

#include <cfenv>
#include <clocale>
#include <csignal>
#include <cwchar>
#include <filesystem>
#include <locale>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

volatile std::sig_atomic_t alarms = 0;

// Interrupts the process with a signal every millisecond.
class Interruptions {
public:
    Interruptions() {
        alarms = 0;
        struct sigaction count = {};
        count.sa_handler = [](int) { alarms = alarms + 1; };
        EXPECT_EQ(::sigaction(SIGALRM, &count, &before_), 0);
        set(1000);
    }
    ~Interruptions() {
        set(0);
        ::sigaction(SIGALRM, &before_, nullptr);
    }
    Interruptions(const Interruptions&) = delete;
    Interruptions& operator=(const Interruptions&) = delete;

private:
    static void set(suseconds_t microseconds) {
        const itimerval timer = {{0, microseconds}, {0, microseconds}};
        EXPECT_EQ(::setitimer(ITIMER_REAL, &timer, nullptr), 0);
    }

    struct sigaction before_ = {};
};

// Changes the global locale of C++ and of the C library during its life.
class GlobalLocale {
public:
    explicit GlobalLocale(const std::locale& locale) : before_(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(before_); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale before_;
};

// Changes every byte that a stream of the standard library reads or writes to 'x'.
class XForEveryByte : public std::codecvt<char, char, std::mbstate_t> {
    bool do_always_noconv() const noexcept override { return false; }
    result do_in(std::mbstate_t&, const char* from, const char* fromEnd, const char*& fromNext,
                 char* to, char* toEnd, char*& toNext) const override {
        for (; from != fromEnd && to != toEnd; ++from)
            *to++ = 'x';
        fromNext = from;
        toNext = to;
        return ok;
    }
    result do_out(std::mbstate_t& state, const char* from, const char* fromEnd,
                  const char*& fromNext, char* to, char* toEnd, char*& toNext) const override {
        return do_in(state, from, fromEnd, fromNext, to, toEnd, toNext);
    }
};

// Formats numbers with groups of one digit and a decimal comma.
class OtherNumbers : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\1"; }
};

// Settings that the host makes for the whole process or for the calling thread.
class ProcessStateTest : public SystemTest {
protected:
    ProcessStateTest() {
        setLanguage(u"de");
        std::string text = resourceText("orchard", {{"graft.html", "Join tr\xC3\xA9"
                                                                   "es"}});
        addApi("Orchard.json", text.insert(1, "\"unknown\":" + kNumbers + ","));
        addApi("Orchard_de.json",
               resourceText("orchard", {{"prune.html", "Schneiden"}}) + std::string(100'000, ' '));
        addLookup("Orchard.json", ResourceText("orchard").str());
        ZipBytes zip;
        zip.entries.push_back({.name = "Packed.json",
                               .content = ResourceText("packed").str() + std::string(100'000, ' '),
                               .method = kDeflated});
        addLookup("Packed.zip", zip.build());
    }

    // Numbers for an unknown key, some of them beyond the range of double.
    static inline const std::string kNumbers =
        "[0.1,1e308,1e400,-1e400,1e-400,5e-324,2.2250738585072014e-308,1.7976931348623159e308,"
        "0e400,18446744073709551616,-9223372036854775809," +
        std::string(200'000, '9') + ",0." + std::string(200'000, '9') + "]";

    static void expectAllFound() {
        const Resources resources = {{u"orchard", section(u"orchard", u"Orchard",
                                                          {{u"graft.html", u"Join tr\u00E9es"},
                                                           {u"prune.html", u"Schneiden"}})}};
        const Lookups lookups = {{},
                                 {{u"orchard", lookupSection(u"orchard", u"Orchard", {})},
                                  {u"packed", lookupSection(u"packed", u"Packed", {})}}};
        EXPECT_EQ(DocResourceParser::getResourceFile(u"Orchard"), resources);
        EXPECT_EQ(DocResourceParser::getResourceLookupFiles(), lookups);
        EXPECT_EQ(findResources(u"Absent"), std::nullopt);
    }
};

TEST_F(ProcessStateTest, InterruptedCallsChangeNothing) {
    const Interruptions interruptions;
    do
        expectAllFound();
    while (alarms < 50);
}

TEST_F(ProcessStateTest, BlockedSignalsStayBlockedAndChangeNothing) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    ASSERT_EQ(::pthread_sigmask(SIG_SETMASK, &all, &before), 0);
    expectAllFound();
    sigset_t after;
    ASSERT_EQ(::pthread_sigmask(SIG_SETMASK, &before, &after), 0);
    EXPECT_EQ(sigismember(&after, SIGALRM), 1) << "the library changed the mask";
}

TEST_F(ProcessStateTest, GlobalLocaleChangesNeitherResultsNorMessages) {
    const auto messages = [] {
        const LogCapture log;
        expectAllFound();
        return log.messages();
    };
    const std::vector<std::string> inClassicLocale = messages();
    const std::locale strange(std::locale(std::locale::classic(), new XForEveryByte),
                              new OtherNumbers);
    const GlobalLocale global(strange);
    EXPECT_EQ(messages(), inClassicLocale);
}

TEST_F(ProcessStateTest, LocaleOfTheCLibraryChangesNothing) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name :
         {"C.UTF-8", "de_DE.UTF-8", "de_DE.ISO-8859-1", "tr_TR.UTF-8", "POSIX"}) {
        // A system that lacks the locale keeps the previous one, which is a valid case too.
        static_cast<void>(std::setlocale(LC_ALL, name));
        expectAllFound();
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST_F(ProcessStateTest, NumbersBeyondDoubleRaiseNoTrap) {
    runInChild({}, [](Progress& progress) {
        for (const int rounding : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
            progress.at("rounding mode " + std::to_string(rounding));
            ASSERT_EQ(std::fesetround(rounding), 0);
            constexpr int kTraps = FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW;
            std::feclearexcept(FE_ALL_EXCEPT);
            ASSERT_NE(::feenableexcept(kTraps), -1);
            expectAllFound();
            EXPECT_EQ(::fegetexcept() & kTraps, kTraps) << "the library changed the traps";
            EXPECT_EQ(std::fegetround(), rounding) << "the library changed the rounding";
        }
    });
}

} // namespace
} // namespace docparser_tests
