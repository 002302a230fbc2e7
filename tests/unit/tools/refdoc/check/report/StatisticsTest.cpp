#include "tools/refdoc/check/report/Statistics.hpp"

#include "tests/unit/tools/refdoc/check/report/Findings.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"

#include <gmock/gmock.h>

namespace refdoc::check {

void PrintTo(const ProductCount& count, std::ostream* out) {
    *out << count.rule->name << ' ' << count.product << ' ' << count.count;
}

} // namespace refdoc::check

namespace refdoc_tests {
namespace {

using namespace refdoc::check;

TEST(StatisticsTest, SortsByRuleThenByCountThenByProduct) {
    const Rule& first = *rules()[0];
    const Rule& second = *rules()[1];
    FindingMaker maker;
    std::vector<ReportedFinding> findings;
    maker.begin("installation.json");
    findings.push_back(maker.make(second, "m"));
    maker.begin("B.json", "B");
    findings.push_back(maker.make(second, "m"));
    findings.push_back(maker.make(first, "m"));
    maker.begin("C.json", "C");
    findings.push_back(maker.make(second, "m"));
    maker.begin("C_de.json", "C");
    findings.push_back(maker.make(second, "m"));
    EXPECT_THAT(countByProduct(findings),
                testing::ElementsAre(ProductCount{&first, "B", 1}, ProductCount{&second, "C", 2},
                                     ProductCount{&second, "", 1}, ProductCount{&second, "B", 1}));
}

} // namespace
} // namespace refdoc_tests
