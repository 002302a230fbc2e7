// The timed rows and parts over one root, as a Google Benchmark program:
// docparser_benchmark --root=FOLDER [--parts] [--benchmark_...]

#include "benchmarks/harness/TimeMeter.hpp"
#include "benchmarks/rows/Row.hpp"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string_view>

namespace {

using namespace reference::docparser::benchmarks;

void run(benchmark::State& state, const Row& row) {
    std::size_t bytes = 0;
    for (auto _ : state) {
        TimeMeter meter;
        row.pass(meter);
        state.SetIterationTime(meter.seconds());
        bytes += meter.inputBytes();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

struct Options {
    std::string_view root;
    bool isOfParts = false;
};

// Takes the options that are not Google Benchmark's out of the arguments.
Options takeOptions(int& argc, char** argv) {
    constexpr std::string_view kRoot = "--root=";
    Options options;
    int kept = 1;
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        if (argument.starts_with(kRoot))
            options.root = argument.substr(kRoot.size());
        else if (argument == "--parts")
            options.isOfParts = true;
        else
            argv[kept++] = argv[index];
    }
    argc = kept;
    return options;
}

void registerRows(const std::vector<Row>& rows) {
    for (const Row& row : rows)
        benchmark::RegisterBenchmark((row.group + ":" + row.name).c_str(), run, row)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    try {
        const Options options = takeOptions(argc, argv);
        benchmark::Initialize(&argc, argv);
        if (benchmark::ReportUnrecognizedArguments(argc, argv) || options.root.empty()) {
            std::fputs("usage: docparser_benchmark --root=FOLDER [--parts] [--benchmark_...]\n",
                       stderr);
            return 2;
        }
        const auto corpus = std::make_shared<const Corpus>(options.root);
        const std::vector<Row> rows = options.isOfParts ? makePartRows(corpus) : makeRows(corpus);
        requireEqualResults(rows);
        registerRows(rows);
        benchmark::RunSpecifiedBenchmarks();
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_benchmark: %s\n", error.what());
        return 1;
    }
}
