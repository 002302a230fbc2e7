#include "tests/support/NativeText.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using namespace refdoc::check;

TEST(SarifReportTest, PathsAreEscaped) {
    const std::string drive = docparser_tests::textOf(std::filesystem::current_path().root_name());
    const std::string root = (drive.empty() ? "file://" : "file:///") + drive;
    const Rule& rule = *rules().front();
    const auto locationOf = [](std::string path) {
        return ReportedLocation{
            std::make_shared<const ReportedFile>(ReportedFile{std::move(path), ""}), {}, {}};
    };
    const std::string report =
        sarifReport({{&rule, rule.severity, locationOf("a b/ä:c.json"), "m", "0", {}},
                     {&rule, rule.severity, locationOf(drive + "/x y.json"), "m", "1", {}}},
                    "/base folder");
    const json::value run = json::parse(report).at_pointer("/runs/0");
    EXPECT_EQ(run.at_pointer("/results/0/locations/0/physicalLocation/artifactLocation"),
              json::value({{"uri", "a%20b/%C3%A4%3Ac.json"}, {"uriBaseId", "%SRCROOT%"}}));
    EXPECT_EQ(run.at_pointer("/results/1/locations/0/physicalLocation/artifactLocation"),
              json::value({{"uri", root + "/x%20y.json"}}));
    EXPECT_EQ(run.at_pointer("/originalUriBaseIds/%SRCROOT%/uri"), "file:///base%20folder/");
}

} // namespace
} // namespace refdoc_tests
