#include "tools/refdoc/check/report/Selection.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace refdoc::check {

namespace {

constexpr std::size_t kMostRepeats = 3; // of a cause, listed one by one

std::string_view causeOf(const ReportedFinding& finding) {
    return finding.cause.empty() ? finding.message : finding.cause;
}

// Returns the findings in the order of their importance.
std::vector<ReportedFinding*> byImportance(std::vector<ReportedFinding>& findings) {
    using Rank = std::tuple<bool, std::size_t, int>;
    std::map<const Rule*, std::size_t> turns;
    std::vector<std::pair<Rank, ReportedFinding*>> ranked;
    ranked.reserve(findings.size());
    for (ReportedFinding& finding : findings) {
        const bool isError = finding.severity == Severity::Error;
        const std::size_t turn = turns[finding.rule]++;
        ranked.push_back({{!isError, turn, -static_cast<int>(finding.severity)}, &finding});
    }
    std::ranges::sort(ranked);
    std::vector<ReportedFinding*> ordered;
    ordered.reserve(ranked.size());
    for (const auto& [rank, finding] : ranked)
        ordered.push_back(finding);
    return ordered;
}

// Moves findings out of the vector that they are in, in its order.
std::vector<ReportedFinding> inOrder(std::vector<ReportedFinding*> findings) {
    std::ranges::sort(findings);
    std::vector<ReportedFinding> result;
    result.reserve(findings.size());
    for (ReportedFinding* finding : findings)
        result.push_back(std::move(*finding));
    return result;
}

using Group = std::vector<ReportedFinding*>; // not empty

// Leaves only the first finding.
void reduce(Group& group) {
    std::set<const ReportedFile*> files;
    for (const ReportedFinding* finding : group)
        files.insert(finding->location.file.get());
    group.front()->morePlaces = group.size() - 1;
    group.front()->files = files.size();
    group.resize(1);
}

} // namespace

std::vector<ReportedFinding> groupRepeated(std::vector<ReportedFinding> findings) {
    std::map<const Rule*, std::unordered_map<std::string_view, Group>> groups;
    for (ReportedFinding& finding : findings)
        groups[finding.rule][causeOf(finding)].push_back(&finding);
    std::vector<ReportedFinding*> listed;
    for (auto& [rule, causes] : groups) {
        for (auto& [cause, group] : causes) {
            if (group.size() > kMostRepeats)
                reduce(group);
            listed.insert(listed.end(), group.begin(), group.end());
        }
    }
    return inOrder(std::move(listed));
}

std::vector<ReportedFinding>
keepMostImportant(std::vector<ReportedFinding> findings, std::size_t budget,
                  const std::function<std::size_t(const ReportedFinding&)>& costOf) {
    std::vector<ReportedFinding*> ordered = byImportance(findings);
    const auto exceedsBudget = [&](const ReportedFinding* finding) {
        const std::size_t cost = costOf(*finding);
        if (cost > budget)
            return true;
        budget -= cost;
        return false;
    };
    ordered.erase(std::ranges::find_if(ordered, exceedsBudget), ordered.end());
    return inOrder(std::move(ordered));
}

std::vector<ReportedFinding> keepMostImportant(std::vector<ReportedFinding> findings,
                                               std::size_t count) {
    if (findings.size() <= count)
        return findings;
    return keepMostImportant(std::move(findings), count,
                             [](const ReportedFinding&) { return std::size_t{1}; });
}

} // namespace refdoc::check
