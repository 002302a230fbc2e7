// Measures the rows over one reference root: their time or, if the program has the counting
// allocator, their memory. --first-call prints the seconds that the first call of a row takes in a
// new process, --load the seconds that retrieving everything in each language takes.

#include "benchmarks/rows/Row.hpp"
#include "docparser/DocResourceParser.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace reference::docparser::benchmarks;

const std::vector<std::string> kLanguages{"en", "de", "ja", "ru"};

void requireCorrectRows(const std::vector<Row>& rows) {
    for (const Row& row : rows) {
        if (row.isCorrect && !row.isCorrect())
            throw std::runtime_error("other records than the library: " + row.name);
    }
}

void run(benchmark::State& state, const Row& row) {
    Meter total;
    for (auto _ : state) {
        const double before = total.seconds;
        row.measure(total);
        state.SetIterationTime(total.seconds - before);
    }
    const auto bytes = static_cast<double>(total.textBytes);
    state.counters["bytes"] = bytes / static_cast<double>(state.iterations());
    state.counters["peak"] = static_cast<double>(total.peakBytes) / bytes;
    state.counters["kept"] = static_cast<double>(total.keptBytes) / bytes;
    state.counters["allocations"] =
        static_cast<double>(total.allocations) / bytes * 1024; // per KiB
}

void runRows(const std::string& root) {
    const Corpus corpus(root, kLanguages);
    const std::vector<Row> rows = makeRows(corpus);
    requireCorrectRows(rows);
    for (const Row& row : rows)
        benchmark::RegisterBenchmark(row.name.c_str(), run, row)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}

void printFirstCall(const std::string& root, const std::string& name) {
    Corpus corpus(root, kLanguages);
    corpus.keepTypicalProduct();
    const std::vector<Row> rows = makeRows(corpus);
    const auto row = std::ranges::find(rows, name, &Row::name);
    if (row == rows.end())
        throw std::invalid_argument("no row " + name);
    Meter meter;
    row->measure(meter);
    std::printf("%.9f\n", meter.seconds);
}

void printLoad(const std::string& root, std::vector<std::string> languages) {
    using reference::docparser::DocResourceParser;
    const Corpus corpus(root, std::move(languages));
    const auto loadAll = [&](const std::string& language) {
        corpus.setLanguage(language);
        for (const std::u16string& product : corpus.products())
            DocResourceParser::getResourceFile(product);
        return DocResourceParser::getResourceLookupFiles();
    };
    Meter meter;
    for (const std::string& language : corpus.languages())
        meter.measure([&] { return language; }, loadAll);
    std::printf("%.9f\n", meter.seconds);
}

} // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        const std::vector<std::string> arguments(argv + 1, argv + argc);
        if (arguments.size() == 1) {
            runRows(arguments[0]);
        } else if (arguments.size() == 3 && arguments[1] == "--first-call") {
            printFirstCall(arguments[0], arguments[2]);
        } else if (arguments.size() > 2 && arguments[1] == "--load") {
            printLoad(arguments[0], {arguments.begin() + 2, arguments.end()});
        } else {
            std::fputs("usage: docparser_benchmark ROOT [--benchmark_...]\n"
                       "       docparser_benchmark ROOT --first-call ROW\n"
                       "       docparser_benchmark ROOT --load LANGUAGE...\n",
                       stderr);
            return 2;
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_benchmark: %s\n", error.what());
        return 1;
    }
}
