// What the first call of a process costs: docparser_first_call FOLDER ROW prints the seconds of
// processor time that the row's first call takes, for the root's product of middle length or for
// the whole lookup index. Nothing of the row has run before.

#include "benchmarks/harness/TimeMeter.hpp"
#include "benchmarks/rows/Row.hpp"

#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string_view>

namespace {

using namespace reference::docparser::benchmarks;

const Row& find(const std::vector<Row>& rows, std::string_view name) {
    for (const Row& row : rows) {
        if (row.group + ":" + row.name == name)
            return row;
    }
    throw std::invalid_argument("no row " + std::string(name));
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 3) {
            std::fputs("usage: docparser_first_call FOLDER ROW\n", stderr);
            return 2;
        }
        const auto corpus = std::make_shared<Corpus>(argv[1]);
        corpus->keepTypicalProduct();
        TimeMeter meter;
        find(makeRows(corpus), argv[2]).pass(meter);
        std::printf("%.9f\n", meter.firstCallSeconds());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_first_call: %s\n", error.what());
        return 1;
    }
}
