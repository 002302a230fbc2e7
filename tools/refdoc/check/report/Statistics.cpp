#include "tools/refdoc/check/report/Statistics.hpp"

#include "tools/refdoc/check/rules/Rules.hpp"

#include <algorithm>
#include <map>
#include <string_view>
#include <tuple>
#include <utility>

namespace refdoc::check {

std::vector<ProductCount> countByProduct(const std::vector<ReportedFinding>& findings) {
    std::map<std::pair<std::size_t, std::string_view>, ProductCount> counts;
    for (const ReportedFinding& finding : findings) {
        const std::string& product = finding.location.file->product;
        ++counts
              .try_emplace({indexOf(*finding.rule), product},
                           ProductCount{finding.rule, product, 0})
              .first->second.count;
    }
    std::vector<ProductCount> sorted;
    for (const auto& [key, count] : counts)
        sorted.push_back(count);
    std::ranges::stable_sort(sorted, [](const ProductCount& left, const ProductCount& right) {
        return std::tuple(indexOf(*left.rule), right.count) <
               std::tuple(indexOf(*right.rule), left.count);
    });
    return sorted;
}

} // namespace refdoc::check
