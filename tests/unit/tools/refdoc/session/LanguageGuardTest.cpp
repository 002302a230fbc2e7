#include "platform/HostServices.hpp"
#include "platform/LanguageOverrides.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace refdoc {
namespace {

class LanguageGuardTest : public testing::Test {
protected:
    LanguageGuardTest() {
        platform::setHostServices(std::make_shared<platform::LanguageOverrides>(
            platform::defaultHostServices(), u"ja", std::vector<std::u16string>{u"en", u"ja"}));
    }
    ~LanguageGuardTest() override { platform::setHostServices(nullptr); }

    static std::u16string language() { return platform::hostServices()->docLanguage(); }

    static std::u16string languageOfNewThread() {
        std::u16string result;
        std::jthread([&] { result = language(); }).join();
        return result;
    }
};

TEST_F(LanguageGuardTest, MakesALanguageCurrentAsLongAsItExists) {
    {
        const LanguageGuard german(u"de");
        EXPECT_EQ(language(), u"de");
        {
            const LanguageGuard russian(u"ru");
            EXPECT_EQ(language(), u"ru");
        }
        EXPECT_EQ(language(), u"de");
    }
    EXPECT_EQ(language(), u"ja");
}

TEST_F(LanguageGuardTest, ItsLanguageJoinsTheSupportedLanguages) {
    const LanguageGuard german(u"de");
    EXPECT_EQ(platform::hostServices()->supportedDocLanguages(),
              (std::vector<std::u16string>{u"en", u"ja", u"de"}));
}

TEST_F(LanguageGuardTest, OtherThreadsKeepTheirLanguage) {
    const LanguageGuard german(u"de");
    EXPECT_EQ(languageOfNewThread(), u"ja");
    std::jthread([] {
        const LanguageGuard russian(u"ru");
        EXPECT_EQ(language(), u"ru");
    }).join();
    EXPECT_EQ(language(), u"de");
}

TEST_F(LanguageGuardTest, OtherServicesTakeEffectAfterwards) {
    { const LanguageGuard german(u"de"); }
    platform::setHostServices(std::make_shared<platform::LanguageOverrides>(
        platform::defaultHostServices(), u"fr", std::nullopt));
    EXPECT_EQ(language(), u"fr");
    const LanguageGuard german(u"de");
    EXPECT_EQ(languageOfNewThread(), u"fr");
}

// The memory of a thread's variables may be in use again before the thread has ended.
TEST_F(LanguageGuardTest, ThreadsEndWhileOthersAllocate) {
    const std::jthread other([](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            for (std::size_t size = 16; size <= 128; size += 8)
                const std::u16string text(size / sizeof(char16_t), u'x');
        }
    });
    for (int count = 0; count < 500; ++count) {
        std::jthread([] {
            const LanguageGuard german(u"de");
            EXPECT_EQ(language(), u"de");
        });
    }
}

} // namespace
} // namespace refdoc
