#include "tests/support/ZipBytes.hpp"
#include "tests/system/SystemTest.hpp"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <string>
#include <vector>

namespace docparser_tests {
namespace {

// Sizes at which a step of quadratic cost would take minutes or hours.
class ScaleTest : public SystemTest {
protected:
    static constexpr std::size_t kMany = 100'000;

    // Returns `prefix`, number and `suffix` for each number below kMany, separated by commas.
    static std::string numbered(const std::string& prefix, const std::string& suffix) {
        std::string list;
        for (std::size_t i = 0; i < kMany; ++i)
            list.append(i ? "," : "").append(prefix).append(std::to_string(i)).append(suffix);
        return list;
    }

    // Inserts elements into the empty array under a key.
    static std::string withElements(std::string text, const std::string& key,
                                    const std::string& elements) {
        const std::string start = '"' + key + "\":[";
        return text.insert(text.find(start) + start.size(), elements);
    }
};

TEST_F(ScaleTest, KeepsAllItemsOfOneHrefInOrder) {
    addApi("Orchard.json", withElements(resourceText("orchard", {}), "refItems",
                                        numbered(R"({"href":"a","refpurpose":")", "\"}")));
    const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
    const std::vector<RefItem>& items = resources.at(u"orchard").items.at(u"a");
    ASSERT_EQ(items.size(), kMany);
    EXPECT_EQ(items.front().getRefPurpose(), u"0");
    EXPECT_EQ(items.back().getRefPurpose(), u"99999");
}

TEST_F(ScaleTest, ReadsAllBlocksOfNameValuePairs) {
    const std::string item = R"({"href":"a","refpurpose":"","inputs":[)" +
                             numbered(R"({"namevaluepairs":[{"purpose":"","name":")", "\"}]}") +
                             "]}";
    addApi("Orchard.json", withElements(resourceText("orchard", {}), "refItems", item));
    const Resources resources = DocResourceParser::getResourceFile(u"Orchard");
    const RefItem& read = resources.at(u"orchard").items.at(u"a").front();
    EXPECT_EQ(read.getInputs().size(), kMany);
}

TEST_F(ScaleTest, ComparesEachSectionWithACatalogueOfManyProducts) {
    std::vector<std::string> shortNames;
    shortNames.reserve(200);
    for (int i = 0; i < 200; ++i)
        shortNames.push_back("product " + std::to_string(i));
    host->install(shortNames);
    const std::string sections =
        numbered(R"({"productName":"","helpFolder":"","helpLocation":"","refItems":[],"baseCode":")"
                 "product ",
                 "\"}");
    addLookup(
        "Orchard.json",
        withElements(ResourceText("orchard").set("supportPackages", boost::json::array()).str(),
                     "supportPackages", sections));
    const Lookups lookups = DocResourceParser::getResourceLookupFiles();
    EXPECT_EQ(lookups.installed.size(), 200U);
    EXPECT_EQ(lookups.notInstalled.size(), kMany - 200 + 1);
    EXPECT_EQ(host->count("products"), long{kMany + 1});
}

TEST_F(ScaleTest, MergesRecordsOfOneNameFromThreeFiles) {
    const auto records = [](const std::string& hrefStart) {
        return numbered(R"({"name":"n","refpurpose":"","href":")" + hrefStart, "\"}");
    };
    const auto file = [](const std::string& name, const std::string& items) {
        return ZipEntryBytes{.name = name,
                             .content =
                                 withElements(ResourceText("orchard").str(), "refItems", items)};
    };
    // Each file has more records than all files before it together, so all its records are added.
    ZipBytes zip;
    zip.entries = {file("First.json", records("a")),
                   file("Second.json", records("b") + "," + records("c")),
                   file("Third.json", records("d") + "," + records("e") + "," + records("f") + "," +
                                          records("g"))};
    addLookup("Package.zip", zip.build());
    const Lookups lookups = DocResourceParser::getResourceLookupFiles();
    const auto& merged = lookups.notInstalled.at(u"orchard").items.at(u"n");
    ASSERT_EQ(merged.size(), 7 * kMany);
    for (std::size_t i = 0; i < 7; ++i) {
        const std::u16string start(1, static_cast<char16_t>(u'a' + i));
        EXPECT_EQ(merged[i * kMany].getHref(), start + u"0");
        EXPECT_EQ(merged[(i + 1) * kMany - 1].getHref(), start + u"99999");
    }
}

TEST_F(ScaleTest, ListsAFolderOfManyFilesForManyLanguages) {
    constexpr std::size_t kLanguages = 1000;
    std::vector<std::u16string> suffixes;
    for (std::size_t i = 0; i < kLanguages; ++i) {
        const std::string number = std::to_string(i);
        suffixes.push_back(u"_x" + std::u16string(number.begin(), number.end()));
    }
    // Hard links are created faster than files, but a file may have only some ten thousand.
    const std::filesystem::path files[] = {folder.write("even", ""), folder.write("odd", "")};
    // Every tenth file is a translation; the languages take turns.
    for (std::size_t i = 0; i < kMany; ++i) {
        std::string name = "p" + std::to_string(i);
        if (i % 10 == 0)
            name += "_x" + std::to_string(i / 10 % kLanguages);
        std::filesystem::create_hard_link(files[i % 2], lookupPath(name + ".json"));
    }
    const auto products = DocResourceParser::getAllProducts(
        DocResourceParser::getReferenceRoots()->lookupFolder, suffixes, u"_x7");
    EXPECT_EQ(products.jsonProducts.size(), kMany / 10 * 9 + kMany / 10 / kLanguages);
    EXPECT_EQ(std::ranges::count_if(products.jsonProducts,
                                    [](const auto& file) { return file.isNonEnglishLocale(); }),
              std::ptrdiff_t{kMany / 10 / kLanguages});
    EXPECT_TRUE(products.zipProducts.empty());
}

TEST_F(ScaleTest, OpensManyPackagesOneAtATime) {
    const auto openFiles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    constexpr std::size_t kPackages = 2000;
    for (std::size_t i = 0; i < kPackages; ++i) {
        const std::string name = "p" + std::to_string(i);
        ZipBytes zip;
        ZipEntryBytes& entry = zip.entries.emplace_back();
        entry.name = name + ".json";
        entry.content = ResourceText(name).str();
        const std::string package = zip.build();
        addLookup(name + ".zip", i % 10 == 0 ? package.substr(0, package.size() / 2) : package);
    }
    const auto openBefore = openFiles();
    std::ptrdiff_t mostOpen = 0;
    host->onProducts = [&] { mostOpen = std::max(mostOpen, openFiles()); };
    EXPECT_EQ(DocResourceParser::getResourceLookupFiles().notInstalled.size(), kPackages / 10 * 9);
    EXPECT_LE(mostOpen, openBefore + 1);
    EXPECT_EQ(openFiles(), openBefore);
}

} // namespace
} // namespace docparser_tests
