// Measures the rows over one reference root: their time or, if the program has the counting
// allocator, their memory. --first-call prints the seconds that the first call of a row takes in a
// new process, --load the seconds that retrieving everything in each language takes.

#include "benchmarks/rows/Row.hpp"
#include "docparser/DocResourceParser.hpp"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <span>
#include <stdexcept>
#include <string_view>

namespace {

using namespace reference::docparser::benchmarks;

using Arguments = std::span<char* const>;

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
        const double before = total.seconds();
        row.measure(total);
        state.SetIterationTime(total.seconds() - before);
    }
    const auto passes = static_cast<double>(state.iterations());
    state.counters["bytes"] = static_cast<double>(total.textBytes()) / passes;
    state.counters["peak"] = total.peakBytesPerByte();
    state.counters["kept"] = total.keptBytesPerByte();
    state.counters["allocations"] = total.allocationsPerKiB();
}

void runRows(const char* root) {
    const Corpus corpus(root, kLanguages);
    const std::vector<Row> rows = makeRows(corpus);
    requireCorrectRows(rows);
    for (const Row& row : rows)
        benchmark::RegisterBenchmark(row.name.c_str(), run, row)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
}

void printFirstCall(const char* root, const char* name) {
    Corpus corpus(root, kLanguages);
    corpus.keepTypicalProduct();
    const std::vector<Row> rows = makeRows(corpus);
    const auto row = std::ranges::find(rows, name, &Row::name);
    if (row == rows.end())
        throw std::invalid_argument("no row " + std::string(name));
    Meter meter;
    row->measure(meter);
    std::printf("%.9f\n", meter.seconds());
}

void printLoad(const char* root, std::vector<std::string> languages) {
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
    std::printf("%.9f\n", meter.seconds());
}

bool runCommand(Arguments arguments) {
    if (arguments.size() == 2)
        runRows(arguments[1]);
    else if (arguments.size() == 4 && arguments[2] == std::string_view("--first-call"))
        printFirstCall(arguments[1], arguments[3]);
    else if (arguments.size() > 3 && arguments[2] == std::string_view("--load"))
        printLoad(arguments[1], {arguments.begin() + 3, arguments.end()});
    else
        return false;
    return true;
}

} // namespace

int main(int argc, char** argv) {
    try {
        benchmark::Initialize(&argc, argv);
        if (runCommand({argv, static_cast<std::size_t>(argc)}))
            return 0;
        std::fputs("usage: docparser_benchmark ROOT [--benchmark_...]\n"
                   "       docparser_benchmark ROOT --first-call ROW\n"
                   "       docparser_benchmark ROOT --load LANGUAGE...\n",
                   stderr);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_benchmark: %s\n", error.what());
        return 1;
    }
}
