#include "tools/refdoc/translations/ReportReader.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/session/Languages.hpp"
#include "tools/refdoc/session/Parallel.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/translations/ItemReader.hpp"
#include "tools/refdoc/translations/LookupReader.hpp"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <utility>

namespace refdoc::translations {

using Tools = reference::docparser::DocResourceParser::ParsingTools;

namespace {

using Languages = std::vector<std::u16string>;
using Lookups = std::vector<std::map<std::u16string, Comparison>>; // by language

Languages otherLanguages() {
    Languages languages = allLanguages();
    std::erase(languages, Tools::kEnglishLocale);
    if (languages.empty())
        throw std::runtime_error("English is the only supported language; --langs names others, "
                                 "and --langs auto takes them from the names of the files");
    return languages;
}

Lookups readLookups(Report& report, bool wantsPositions, Progress& progress) {
    progress.begin("reading lookups", report.languages.size() + 1);
    LookupReader reader(wantsPositions);
    progress.step();
    Lookups lookups;
    for (const std::u16string& language : report.languages) {
        lookups.push_back(reader.compare(language));
        progress.step();
    }
    std::ranges::copy(reader.damaged(), std::back_inserter(report.damaged));
    return lookups;
}

std::vector<std::u16string> chosenProducts(const std::vector<std::u16string>& chosen,
                                           const Languages& languages, const Lookups& lookups) {
    std::set<std::u16string> names = productNames(languages);
    for (const auto& comparisons : lookups) {
        for (const auto& [product, comparison] : comparisons)
            names.insert(product);
    }
    if (!chosen.empty())
        std::erase_if(names, [&](const std::u16string& name) {
            return std::ranges::find(chosen, name) == chosen.end();
        });
    return {names.begin(), names.end()};
}

void readItems(Report& report, const std::vector<std::u16string>& products, bool wantsPositions,
               Progress& progress) {
    progress.begin("reading products", products.size());
    const ItemReader reader(report.languages, wantsPositions);
    std::vector<ReadItems> results(products.size());
    forEachInParallel(products.size(), [&](std::size_t number) {
        results[number] = reader.read(products[number]);
        progress.step();
    });
    for (ReadItems& result : results) {
        report.products.push_back(std::move(result.report));
        std::ranges::move(result.damaged, std::back_inserter(report.damaged));
    }
}

void addLookups(Lookups& lookups, Report& report) {
    for (ProductReport& product : report.products) {
        for (std::size_t index = 0; index < lookups.size(); ++index)
            product.languages[index].lookup = std::move(lookups[index][product.product]);
    }
}

} // namespace

Report readReport(const std::vector<std::u16string>& products, bool wantsPositions,
                  Progress& progress) {
    Report report{.languages = otherLanguages()};
    Lookups lookups = readLookups(report, wantsPositions, progress);
    readItems(report, chosenProducts(products, report.languages, lookups), wantsPositions,
              progress);
    addLookups(lookups, report);
    return report;
}

} // namespace refdoc::translations
