// Writes generated reference roots: docparser_generate FOLDER PRODUCTS, or with --single a root of
// one full file of so many bytes: docparser_generate --single FOLDER BYTES.

#include "benchmarks/generator/RootGenerator.hpp"

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

namespace {

using namespace reference::docparser::benchmarks;

double ratio(std::size_t part, std::size_t whole) {
    return whole == 0 ? 0 : static_cast<double>(part) / static_cast<double>(whole);
}

void print(const char* kind, const TextStatistics& statistics) {
    std::printf(
        "%s: %zu items, %.2f strings an item, %.1f bytes an identifier, %.1f a text\n", kind,
        statistics.items,
        ratio(statistics.words + statistics.identifiers + statistics.texts, statistics.items),
        ratio(statistics.identifierBytes, statistics.identifiers),
        ratio(statistics.textBytes, statistics.texts));
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 4 && argv[1] == std::string_view("--single")) {
            generateSingleFileRoot(argv[2], std::stoull(argv[3]));
            return 0;
        }
        if (argc != 3) {
            std::fputs("usage: docparser_generate [--single] FOLDER COUNT\n", stderr);
            return 2;
        }
        const RootStatistics statistics = generateRoot(argv[1], std::stoull(argv[2]));
        print("full files", statistics.full);
        print("lookup files", statistics.lookup);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_generate: %s\n", error.what());
        return 1;
    }
}
