#include "benchmarks/generator/RootGenerator.hpp"

#include "benchmarks/generator/ZipFile.hpp"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <stdexcept>
#include <string>

namespace reference::docparser::benchmarks {

namespace {

namespace fs = std::filesystem;

constexpr double kMeanItems = 27;
constexpr std::size_t kMeanItemBytes = 1040;

void writeFile(const fs::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path.string());
}

// A count of a long-tailed distribution, log-normal by the sum of uniform numbers.
std::size_t itemCount(Random& random) {
    constexpr double kSpread = 0.85;
    double normal = -6;
    for (int addend = 0; addend < 12; ++addend)
        normal += random.fraction();
    const double count = kMeanItems * std::exp(kSpread * normal - kSpread * kSpread / 2);
    return std::max<std::size_t>(2, static_cast<std::size_t>(count));
}

std::string localeSuffix(Language language) {
    return language == Language::English ? std::string() : concat({"_", languageCode(language)});
}

std::string metadata(const std::string& product) {
    return concat({"<?xml version=\"1.0\" encoding=\"UTF-8\"?><!-- ", product, " -->"});
}

void writeLookup(const fs::path& folder, const GeneratedProduct& product, std::size_t index,
                 TextStatistics& statistics) {
    const Language languages[] = {Language::English, translationOf(index)};
    std::vector<ZipEntry> entries;
    for (const Language language : languages)
        entries.push_back({concat({product.name, localeSuffix(language), ".json"}),
                           makeLookupFile(product, language, statistics)});

    if (index % 3 != 0) {
        for (const ZipEntry& entry : entries)
            writeFile(folder / entry.name, entry.text);
    } else if (index % 2 == 0) {
        for (const ZipEntry& entry : entries)
            writeZip(folder / fs::path(entry.name).replace_extension("zip"), {entry});
    } else {
        entries.push_back({"[Content_Types].xml", metadata(product.name)});
        entries.push_back({"_rels/.rels", metadata(product.name)});
        writeZip(folder / (product.name + ".zip"), entries);
    }
}

} // namespace

std::vector<GeneratedProduct> makeProducts(std::size_t count) {
    std::vector<GeneratedProduct> products;
    Random random(20'240'607);
    for (std::size_t index = 0; index < count; ++index)
        products.push_back({productName(index), 1000 + index, itemCount(random)});
    return products;
}

Language translationOf(std::size_t productIndex) noexcept {
    constexpr Language kTurns[] = {Language::German, Language::Japanese, Language::Russian};
    // Every language meets products that lie in packages, which are every third.
    return kTurns[(productIndex + productIndex / 3) % 3];
}

RootStatistics generateRoot(const fs::path& root, std::size_t count) {
    const fs::path full = root / "docCatalog" / "referenceapi";
    const fs::path lookup = root / "docCatalog" / "referenceapi_lookup";
    fs::create_directories(full);
    fs::create_directories(lookup);

    RootStatistics statistics;
    const std::vector<GeneratedProduct> products = makeProducts(count);
    for (std::size_t index = 0; index < products.size(); ++index) {
        const GeneratedProduct& product = products[index];
        for (const Language language : {Language::English, translationOf(index)})
            writeFile(full / (concat({product.name, localeSuffix(language), ".json"})),
                      makeFullFile(product, language, statistics.full));
        writeLookup(lookup, product, index, statistics.lookup);
    }
    return statistics;
}

void generateSingleFileRoot(const fs::path& root, std::size_t bytes) {
    const fs::path full = root / "docCatalog" / "referenceapi";
    fs::create_directories(full);
    fs::create_directories(root / "docCatalog" / "referenceapi_lookup");
    TextStatistics statistics;
    const GeneratedProduct product{productName(0), 1000, bytes / kMeanItemBytes};
    writeFile(full / (product.name + ".json"),
              makeFullFile(product, Language::English, statistics));
}

} // namespace reference::docparser::benchmarks
