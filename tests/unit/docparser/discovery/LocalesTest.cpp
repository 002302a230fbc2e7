#include "docparser/discovery/Locales.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/HostServices.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace docparser_tests {
namespace {

using namespace reference::docparser;
using testing::ElementsAre;
using testing::IsEmpty;
using Tools = DocResourceParser::ParsingTools;

// A host that answers only questions about languages.
class LanguageHost : public platform::HostServices {
public:
    LanguageHost(std::u16string current, std::vector<std::u16string> supported)
        : current_(std::move(current)), supported_(std::move(supported)) {}

    std::u16string installPath() const override { return {}; }
    std::u16string docLanguage() const override { return current_; }
    std::vector<std::u16string> supportedDocLanguages() const override { return supported_; }
    std::vector<std::shared_ptr<const docproduct::TopLevelDocProduct>>
    installedTopLevelDocProducts() const override {
        return {};
    }
    std::u16string supportPackageRoot() const override { return {}; }
    std::unordered_set<std::u16string>
    installedHardwareSupportPackages(const std::u16string&) const override {
        return {};
    }

private:
    std::u16string current_;
    std::vector<std::u16string> supported_;
};

class SpeechlessHost : public LanguageHost {
public:
    SpeechlessHost() : LanguageHost({}, {}) {}
    std::u16string docLanguage() const override { throw std::domain_error("no language"); }
    std::vector<std::u16string> supportedDocLanguages() const override {
        throw std::domain_error("no languages");
    }
};

class Locales : public testing::Test {
public:
    ~Locales() override { platform::setHostServices(nullptr); }

protected:
    static void host(std::u16string current, std::vector<std::u16string> supported) {
        platform::setHostServices(
            std::make_shared<LanguageHost>(std::move(current), std::move(supported)));
    }
};

TEST_F(Locales, GivesEachSupportedLanguageExceptEnglishASuffixInTheServicesOrder) {
    host(u"en", {u"en", u"ja", u"zh_CN"});
    EXPECT_THAT(Tools::getSupportedDocLocales(), ElementsAre(u"_ja", u"_zh_CN"));
}

TEST_F(Locales, KeepsRepeatedLanguagesUnsorted) {
    host(u"en", {u"ja", u"en", u"ja"});
    EXPECT_THAT(Tools::getSupportedDocLocales(), ElementsAre(u"_ja", u"_ja"));
    host(u"en", {u"zh", u"en", u"de", u"en", u"ja"});
    EXPECT_THAT(Tools::getSupportedDocLocales(), ElementsAre(u"_zh", u"_de", u"_ja"));
}

TEST_F(Locales, GivesNoSuffixForEnglishAlone) {
    host(u"en", {u"en"});
    EXPECT_THAT(Tools::getSupportedDocLocales(), IsEmpty());
    host(u"en", {});
    EXPECT_THAT(Tools::getSupportedDocLocales(), IsEmpty());
}

TEST_F(Locales, TreatsOnlyExactlyEnAsEnglish) {
    host(u"en", {u"EN", u"en_US", u"en", u"", u" en"});
    EXPECT_THAT(Tools::getSupportedDocLocales(), ElementsAre(u"_EN", u"_en_US", u"_", u"_ en"));
}

TEST_F(Locales, ReturnsTheCurrentLanguageExactlyAsTheServiceReportsIt) {
    for (const char16_t* language : {u"ja", u"en", u"EN", u"zh_CN", u""}) {
        host(language, {});
        EXPECT_EQ(Tools::getCurrentLocale(), language);
        EXPECT_EQ(getCurrentLocale(), language);
    }
}

TEST_F(Locales, AsksTheServiceOnEachCall) {
    host(u"ja", {u"ja"});
    EXPECT_EQ(Tools::getCurrentLocale(), u"ja");
    host(u"de", {u"de"});
    EXPECT_EQ(Tools::getCurrentLocale(), u"de");
    EXPECT_THAT(Tools::getSupportedDocLocales(), ElementsAre(u"_de"));
}

TEST_F(Locales, PassesServiceExceptionsToTheCaller) {
    platform::setHostServices(std::make_shared<SpeechlessHost>());
    EXPECT_THROW(Tools::getCurrentLocale(), std::domain_error);
    EXPECT_THROW(Tools::getSupportedDocLocales(), std::domain_error);
}

TEST_F(Locales, MakesASuffixOfSeparatorAndLanguageEvenForEnglish) {
    EXPECT_EQ(makeLocaleSuffix(u"de"), u"_de");
    EXPECT_EQ(makeLocaleSuffix(u"en"), u"_en");
    EXPECT_EQ(makeLocaleSuffix(u""), u"_");
}

} // namespace
} // namespace docparser_tests
