#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

class InstalledOptionsTest : public RefdocTest {
protected:
    InstalledOptionsTest() {
        addManifest(R"({"topLevelProducts": [{"shortName": "orchard"}, {"shortName": "cellar"}],
                        "hardwareSupportPackages": ["kit", "gauge"]})");
    }

    std::string installed(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"products", "--json"});
        const boost::json::value products = document(run(arguments).out);
        return boost::json::serialize(products.at("topLevelProducts")) + " " +
               boost::json::serialize(products.at("supportPackages"));
    }
};

TEST_F(InstalledOptionsTest, WithoutOptionsTheManifestDecides) {
    EXPECT_EQ(installed({}), R"(["orchard","cellar"] ["gauge","kit"])");
}

TEST_F(InstalledOptionsTest, EitherOptionReplacesProductsAndPackages) {
    EXPECT_EQ(installed({"--installed", "b,a"}), R"(["b","a"] [])");
    EXPECT_EQ(installed({"--support-packages", "y,x,y"}), R"([] ["x","y"])");
    EXPECT_EQ(installed({"--installed", "a", "--support-packages", "x"}), R"(["a"] ["x"])");
}

TEST_F(InstalledOptionsTest, EmptyListMeansThatNothingIsInstalled) {
    EXPECT_EQ(installed({"--installed", ""}), "[] []");
    EXPECT_EQ(installed({"--support-packages="}), "[] []");
}

TEST_F(InstalledOptionsTest, RepeatedProductIsListedTwice) {
    EXPECT_EQ(installed({"--installed", "a,a"}), R"(["a","a"] [])");
}

TEST_F(InstalledOptionsTest, SupportFolderKeepsTestPackages) {
    EXPECT_EQ(installed({"--support-packages", "x", "--support-folder", path("s")}), R"([] ["x"])");
    EXPECT_EQ(installed({"--support-folder", path("s"), "--support-packages", "x"}), R"([] ["x"])");
}

TEST_F(InstalledOptionsTest, LookupIsSplitByTheInstalledProducts) {
    for (const char* product : {"orchard", "kit", "other"})
        addLookup(product,
                  section(product, R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    const auto split = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"lookup", "--json"});
        const boost::json::value results = document(run(arguments).out);
        std::string keys;
        for (const auto& section : results.at("installed").as_object())
            keys += std::string(section.key()) + " ";
        keys += "|";
        for (const auto& section : results.at("notInstalled").as_object())
            keys += " " + std::string(section.key());
        return keys;
    };
    EXPECT_EQ(split({}), "kit orchard | other");
    EXPECT_EQ(split({"--installed", "other"}), "other | kit orchard");
    EXPECT_EQ(split({"--support-packages", "other,kit"}), "kit other | orchard");
}

} // namespace
} // namespace refdoc_tests
