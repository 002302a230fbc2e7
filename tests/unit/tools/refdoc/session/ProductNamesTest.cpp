#include "tools/refdoc/session/ProductNames.hpp"

#include "tests/support/TemporaryFolder.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace refdoc {
namespace {

class MayHaveTranslationTest : public testing::Test {
protected:
    bool mayHaveTranslation(const char* file, const std::u16string& language) const {
        return refdoc::mayHaveTranslation((folder_.path() / file).u16string(), language);
    }

    const docparser_tests::TemporaryFolder folder_;
};

TEST_F(MayHaveTranslationTest, WhatHasTheNameOfTheTranslationCounts) {
    EXPECT_FALSE(mayHaveTranslation("Orchard.json", u"de"));
    folder_.write("Orchard_de.json", "");
    EXPECT_TRUE(mayHaveTranslation("Orchard.json", u"de"));
    EXPECT_FALSE(mayHaveTranslation("Orchard.json", u"ja"));
    EXPECT_FALSE(mayHaveTranslation("Cellar.json", u"de"));
    std::filesystem::create_directory(folder_.path() / "Cellar_de.json");
    EXPECT_TRUE(mayHaveTranslation("Cellar.json", u"de"));
}

TEST_F(MayHaveTranslationTest, NamesMayHaveDots) {
    folder_.write("a.b_de.json", "");
    EXPECT_TRUE(mayHaveTranslation("a.b.json", u"de"));
}

TEST_F(MayHaveTranslationTest, NothingExistsInAFolderThatDoesNot) {
    EXPECT_FALSE(mayHaveTranslation("missing/Orchard.json", u"de"));
}

} // namespace
} // namespace refdoc
