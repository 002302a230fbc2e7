// How merging two products of n names under one key grows with n.

#include "docparser/retrieval/LookupMerge.hpp"

#include <benchmark/benchmark.h>

#include <string>

namespace {

using namespace reference::docparser;
using reference::property::FunctionType;
using reference::property::RefEntityType;
using reference::property::RefItemLookup;
using Items = DocResource<RefItemLookup>::Items;

std::u16string decimal(std::int64_t number) {
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

// Half of the names of two products made with neighbouring numbers are the same.
Items makeItems(std::int64_t names, std::int64_t product) {
    Items items;
    for (std::int64_t index = 0; index < names; ++index) {
        const std::u16string name = u"name" + decimal(product * names / 2 + index);
        std::vector<RefItemLookup>& records = items[name];
        for (std::int64_t page = 0; page <= product; ++page)
            records.emplace_back(name, RefEntityType::Function, u"one line on what it is for",
                                 false, u"page" + decimal(page) + u".html", FunctionType::Function);
    }
    return items;
}

void mergeNames(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        {
            Items target = makeItems(state.range(0), 0);
            Items source = makeItems(state.range(0), 1);
            state.ResumeTiming();
            mergeLookupItems(target, source, reference::docparser::unobserved);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(mergeNames)
    ->Name("merge/names")
    ->RangeMultiplier(10)
    ->Range(1'000, 1'000'000)
    ->Complexity(benchmark::oNLogN)
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
