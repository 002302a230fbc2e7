// The fixed work whose instructions scripts/benchmark --check counts. It runs once before counting,
// so that what happens only once per process does not count. The name of runMeasured() switches
// counting on.

#include "benchmarks/harness/Host.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "platform/i18n/Converter.hpp"

#include <cstdio>
#include <exception>
#include <fstream>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace {

using namespace reference::docparser;
using namespace reference::docparser::benchmarks;

/// Does the work once and returns the number of sections that it makes.
using Workload = std::function<std::size_t()>;

template <class T>
Workload parsing(const char* path, std::u16string product, SectionParser<T> parseSection) {
    std::ifstream file(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    return [text = std::move(text), product = std::move(product), parseSection] {
        return parseResourceText<T>(text, product, parseSection, unobserved).size();
    };
}

/// Reads a product with its German translation, and the lookup index.
Workload retrieval(const char* root, std::u16string product) {
    DocResourceParser::setReferenceRoot(fl::i18n::to_ustring(root));
    platform::setHostServices(
        std::make_shared<Host>(u"de", std::vector<std::u16string>{u"en", u"de", u"ja", u"ru"}));
    DocResourceParser::setTestProducts({product}, {});
    return [product = std::move(product)] {
        const auto lookups = DocResourceParser::getResourceLookupFiles();
        return DocResourceParser::getResourceFile(product).size() + lookups.installed.size() +
               lookups.notInstalled.size();
    };
}

Workload makeWorkload(std::string_view name, const char* path, std::u16string product) {
    if (name == "full")
        return parsing(path, std::move(product), parseRefItemSection);
    if (name == "lookup")
        return parsing(path, std::move(product), parseRefItemLookupSection);
    if (name == "retrieval")
        return retrieval(path, std::move(product));
    throw std::invalid_argument("no workload " + std::string(name));
}

} // namespace

extern "C" [[gnu::noinline]] std::size_t runMeasured(const Workload& workload) {
    return workload();
}

int main(int argc, char** argv) {
    try {
        if (argc != 4) {
            std::fputs("usage: docparser_workload full|lookup FILE PRODUCT\n"
                       "       docparser_workload retrieval ROOT PRODUCT\n",
                       stderr);
            return 2;
        }
        const Workload workload = makeWorkload(argv[1], argv[2], fl::i18n::to_ustring(argv[3]));
        const std::size_t expected = workload();
        return runMeasured(workload) == expected && expected > 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_workload: %s\n", error.what());
        return 1;
    }
}
