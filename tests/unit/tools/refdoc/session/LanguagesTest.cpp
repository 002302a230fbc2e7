#include "tools/refdoc/session/Languages.hpp"

#include "platform/i18n/Converter.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace refdoc_tests {
namespace {

using Names = std::set<std::u16string>;

// "de 2, zh_CN 1"
std::string countsOf(const Names& names) {
    std::string text;
    for (const auto& [language, count] : refdoc::countTranslations(names))
        text += (text.empty() ? "" : ", ") + fl::i18n::to_string(language) + ' ' +
                std::to_string(count);
    return text;
}

TEST(LanguagesTest, NamesThatAddALocaleToAnotherNameAreTranslations) {
    const struct {
        Names names;
        std::string expected;
    } cases[] = {
        {{}, ""},
        {{u"P", u"P_de"}, "de 1"},
        {{u"P", u"P_de", u"P_ja", u"Q", u"Q_de"}, "de 2, ja 1"},
        {{u"P", u"P_ja_JP", u"P_zh_CN", u"P_pt_BR"}, "ja_JP 1, pt_BR 1, zh_CN 1"},
        {{u"P", u"P_sr_Latn", u"P_sr_Latn_RS", u"P_fil_PH"}, "fil_PH 1, sr_Latn 1, sr_Latn_RS 1"},
        {{u"tree_map", u"tree_map_de"}, "de 1"},
        {{u"P", u"P_zh", u"P_zh_CN"}, "zh 1, zh_CN 1"},
        // The other name is missing.
        {{u"foo_bar"}, ""},
        {{u"P_de", u"Q_de"}, ""},
        {{u"_de"}, ""},
        // English needs no suffix.
        {{u"P", u"P_en", u"P_en_GB"}, "en_GB 1"},
        // Not the form of a locale.
        {{u"foo", u"foo_bar"}, ""},
        {{u"P", u"P_d", u"P_DE", u"P_De", u"P_d1", u"P_", u"P-de", u"Pde"}, ""},
        {{u"P", u"P_de_", u"P_de_de", u"P_de_D", u"P_de_DEU", u"P_sr_latn", u"P_sr_LATN"}, ""},
        {{u"P", u"P_sr_Latn_rs", u"P_sr_Latn_RS_x", u"P_zh_CN_Hans", u"P_\u00e4\u00f6"}, ""},
    };
    for (const auto& [names, expected] : cases)
        EXPECT_EQ(countsOf(names), expected) << testing::PrintToString(names);
}

TEST(LanguagesTest, InferredLanguagesBeginWithEnglish) {
    EXPECT_THAT(refdoc::inferLanguages({u"P"}), testing::ElementsAre(u"en"));
    EXPECT_THAT(refdoc::inferLanguages({u"P", u"P_ja", u"P_de", u"Q", u"Q_de"}),
                testing::ElementsAre(u"en", u"de", u"ja"));
}

} // namespace
} // namespace refdoc_tests
