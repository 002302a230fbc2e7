// What `refdoc check` of a reference root costs next to loading it: every product and the lookup
// index in each language. docparser_check_cost ROOT LANGUAGE,LANGUAGE,... [LIMIT] prints medians of
// processor time; exit status 1 when the check takes more than LIMIT times as long, 4 by default.

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/RootCheck.hpp"
#include "tools/refdoc/check/report/Report.hpp"
#include "tools/refdoc/check/rules/LanguageContents.hpp"
#include "tools/refdoc/session/HostOverrides.hpp"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;

constexpr int kRepetitions = 9;

std::vector<std::u16string> splitList(std::string_view text) {
    std::vector<std::u16string> parts;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(',', start), text.size());
        parts.push_back(fl::i18n::to_ustring(text.substr(start, end - start)));
        start = end + 1;
    }
    return parts;
}

void setLanguage(const std::u16string& root, const std::u16string& language,
                 const std::vector<std::u16string>& languages) {
    refdoc::Options options;
    options.referenceRoot = root;
    options.language = language;
    options.supportedLanguages = languages;
    refdoc::applyOptions(options);
}

// How many sections all retrievals of all languages give; nothing of them is kept.
std::size_t loadAll(const std::u16string& root, const std::vector<std::u16string>& languages,
                    const refdoc::check::ProductNames& products) {
    std::size_t sections = 0;
    for (const std::u16string& language : languages) {
        setLanguage(root, language, languages);
        sections += DocResourceParser::getResourceLookupFiles().notInstalled.size();
        for (const std::u16string& product : products) {
            try {
                sections += DocResourceParser::getResourceFile(product).size();
            } catch (const DocParserException&) {
                continue; // a product that cannot be loaded costs time all the same
            }
        }
    }
    return sections;
}

std::size_t checkAll() {
    refdoc::Progress progress(/*isShown=*/false);
    const refdoc::check::PathNames names(std::filesystem::current_path());
    return makeReport(checkRoots(refdoc::check::Scope::Everything, names, progress), names, {})
        .size();
}

// The processor time of a call, in seconds.
template <class Work>
double timeOf(const Work& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double medianOf(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

int compare(const std::u16string& root, const std::vector<std::u16string>& languages,
            double limit) {
    setLanguage(root, languages.front(), languages);
    refdoc::check::ProductNames products;
    refdoc::check::addFullProducts(languages, products);
    std::size_t sections = 0;
    std::size_t findings = 0;
    std::vector<double> loads;
    std::vector<double> checks;
    std::vector<double> ratios;
    // In turn, so that both have the machine at the same speed.
    for (int run = 0; run < kRepetitions; ++run) {
        loads.push_back(timeOf([&] { sections = loadAll(root, languages, products); }));
        setLanguage(root, languages.front(), languages);
        checks.push_back(timeOf([&] { findings = checkAll(); }));
        ratios.push_back(checks.back() / loads.back());
    }
    std::printf("%zu products, %zu languages, %zu sections: load %.3f s; check %.3f s, %zu "
                "findings; %.2f times\n",
                products.size(), languages.size(), sections, medianOf(loads), medianOf(checks),
                findings, medianOf(ratios));
    return medianOf(ratios) <= limit ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 3 && argc != 4) {
            std::fputs("usage: docparser_check_cost ROOT LANGUAGE,... [LIMIT]\n", stderr);
            return 2;
        }
        return compare(fl::i18n::to_ustring(argv[1]), splitList(argv[2]),
                       argc == 4 ? std::stod(argv[3]) : 4.0);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "docparser_check_cost: %s\n", error.what());
        return 2;
    }
}
