#include "tests/support/Schema.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

std::vector<std::filesystem::path> samplesIn(const std::string& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(SAMPLES_FOLDER) / folder)) {
        if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    }
    return files;
}

TEST(Schema, EveryFullSampleIsValid) {
    const Schema schema("referenceapi.schema.json");
    std::vector<std::filesystem::path> files = samplesIn("help/docCatalog/referenceapi");
    std::ranges::move(samplesIn("supportpackages"), std::back_inserter(files));
    ASSERT_EQ(files.size(), 6U);
    for (const std::filesystem::path& file : files)
        EXPECT_TRUE(schema.accepts(readJson(file))) << file;
}

TEST(Schema, EveryLookupSampleIsValid) {
    const Schema schema("referenceapi_lookup.schema.json");
    std::vector<std::filesystem::path> files = samplesIn("help/docCatalog/referenceapi_lookup");
    std::ranges::move(samplesIn("lookup-packages"), std::back_inserter(files));
    ASSERT_EQ(files.size(), 12U);
    for (const std::filesystem::path& file : files)
        EXPECT_TRUE(schema.accepts(readJson(file))) << file;
}

TEST(Schema, TheManifestIsValid) {
    EXPECT_TRUE(
        Schema("installation.schema.json")
            .accepts(readJson(std::filesystem::path(SAMPLES_FOLDER) / "installation.json")));
}

} // namespace
} // namespace docparser_tests
