#include "tools/refdoc/suggest/NearLanguage.hpp"

#include <gtest/gtest.h>

namespace refdoc_tests {
namespace {

using refdoc::nearLanguage;

TEST(NearLanguageTest, PrefersSpellingThenLanguageThenSimilarLetters) {
    const struct {
        std::u16string language;
        std::vector<std::u16string> expected;
    } cases[] = {
        {u"DE", {u"de"}},
        {u"zh-cn", {u"zh_CN"}},
        {u"ZH_cn", {u"zh_CN"}},
        {u"de-DE", {u"de"}},
        {u"DE_AT", {u"de"}},
        {u"zh", {u"zh_CN"}},
        {u"zh-TW", {u"zh_CN"}},
        {u"en-US", {u"en"}},
        {u"jp", {u"ja"}},
        {u"dde", {u"de"}},
        {u"xx", {}},
        {u"es", {}},
        {u"german", {}},
        {u"", {}},
    };
    for (const auto& [language, expected] : cases)
        EXPECT_EQ(nearLanguage(language, {u"en", u"zh_CN", u"ja", u"de"}), expected)
            << testing::PrintToString(language);
}

TEST(NearLanguageTest, NoLanguageIsNearAnEmptyList) {
    EXPECT_TRUE(nearLanguage(u"de", {}).empty());
}

} // namespace
} // namespace refdoc_tests
