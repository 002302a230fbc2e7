// The fixed work whose instructions scripts/benchmark --check counts:
// docparser_workload full|lookup|retrieval FOLDER
//
// Everything runs once unmeasured, so that what happens only once in a process does not count.
// The counting is switched on by the name of runMeasured().

#include "benchmarks/generator/RootGenerator.hpp"
#include "benchmarks/harness/BenchmarkHost.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "platform/i18n/Converter.hpp"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>

namespace {

using namespace reference::docparser;
using namespace reference::docparser::benchmarks;

/// Does the work once and returns how many sections came of it.
using Workload = std::function<std::size_t()>;

const GeneratedProduct kProduct{"copperbridge", /*seed=*/4711, /*itemCount=*/600};

template <class T>
Workload parsing(std::string text, SectionParser<T> parseSection) {
    return [text = std::move(text), parseSection] {
        return parseResourceText<T>(text, u"copperbridge", parseSection, unobserved).size();
    };
}

/// Reads one product with its translation and the lookups of a folder. The folder holds one plain
/// file and one package, so that the order in which the system lists files changes nothing.
Workload retrieval(const std::filesystem::path& root) {
    generateRoot(root, 2);
    const std::filesystem::path lookup = root / "docCatalog" / "referenceapi_lookup";
    std::filesystem::remove(lookup / (productName(1) + "_ja.json"));
    std::filesystem::remove(lookup / (productName(0) + "_de.zip"));
    DocResourceParser::setReferenceRoot(root.u16string());
    setBenchmarkHost(u"de", {fl::i18n::to_ustring(productName(0))});
    const std::u16string product = fl::i18n::to_ustring(productName(0));
    return [product] {
        const auto lookups = DocResourceParser::getResourceLookupFiles();
        return DocResourceParser::getResourceFile(product).size() + lookups.installed.size() +
               lookups.notInstalled.size();
    };
}

Workload find(std::string_view name, const std::filesystem::path& folder) {
    TextStatistics unused;
    if (name == "full")
        return parsing(makeFullFile(kProduct, Language::German, unused), parseRefItemSection);
    if (name == "lookup")
        return parsing(makeLookupFile(kProduct, Language::German, unused),
                       parseRefItemLookupSection);
    if (name == "retrieval")
        return retrieval(folder);
    throw std::invalid_argument("no workload " + std::string(name));
}

} // namespace

// Found by its name in the program's symbols.
extern "C" [[gnu::noinline]] std::size_t runMeasured(const Workload& workload) {
    return workload();
}

int main(int argc, char** argv) {
    try {
        if (argc != 3) {
            std::fputs("usage: docparser_workload full|lookup|retrieval FOLDER\n", stderr);
            return 2;
        }
        const Workload workload = find(argv[1], argv[2]);
        const std::size_t expected = workload();
        return runMeasured(workload) == expected && expected > 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_workload: %s\n", error.what());
        return 1;
    }
}
