#include "tools/refdoc/products/ProductsCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/json/ToJson.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <boost/algorithm/string/join.hpp>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace refdoc {

using docproduct::TopLevelDocProduct;
using fl::i18n::to_ustring;
using reference::docparser::DocResourceParser;
using reference::docparser::ProductLists;
using reference::docparser::ProductPathData;
using reference::docparser::ReferenceRoots;
using Tools = DocResourceParser::ParsingTools;

// Not constexpr: on Windows, the address of an imported function is known only at load time.
template <>
inline const auto kFields<ProductPathData> =
    std::tuple{Field{"name", &ProductPathData::getName},
               Field{"nonEnglishLocale", &ProductPathData::isNonEnglishLocale},
               Field{"fullPath", &ProductPathData::getFullPath}};

namespace {

// What the command prints, in any format.
struct ProductOverview {
    std::shared_ptr<const ReferenceRoots> roots = DocResourceParser::getReferenceRoots();
    std::u16string supportFolder = *DocResourceParser::getSupportPackageRoot();
    std::u16string language = Tools::getCurrentLocale();
    std::vector<std::u16string> localeSuffixes = Tools::getSupportedDocLocales();
    ProductLists lookupFiles = productsIn(roots->lookupFolder);
    std::shared_ptr<const std::vector<std::shared_ptr<const TopLevelDocProduct>>> topLevelProducts =
        DocResourceParser::getTopLevelProducts();
    std::vector<std::u16string> supportPackages = sortedSupportPackages();

    ProductLists productsIn(const std::u16string& folder) const {
        return DocResourceParser::getAllProducts(folder, localeSuffixes,
                                                 Tools::kLocaleSeparator + language);
    }

private:
    static std::vector<std::u16string> sortedSupportPackages() {
        const auto packages = DocResourceParser::getHardwareSupportPackages();
        std::vector<std::u16string> names(packages->begin(), packages->end());
        std::ranges::sort(names);
        return names;
    }
};

std::vector<std::string> shortNames(const ProductOverview& overview) {
    std::vector<std::string> names;
    for (const auto& product : *overview.topLevelProducts)
        names.push_back(product->getShortName());
    return names;
}

boost::json::value documentOf(const ProductOverview& overview) {
    return {{"roots",
             {{"root", toJson(overview.roots->root)},
              {"lookupFolder", toJson(overview.roots->lookupFolder)},
              {"referenceApiFolder", toJson(overview.roots->referenceApiFolder)},
              {"supportPackageFolder", toJson(overview.supportFolder)}}},
            {"language", toJson(overview.language)},
            {"localeSuffixes", toJson(overview.localeSuffixes)},
            {"jsonProducts", toJson(overview.lookupFiles.jsonProducts)},
            {"zipProducts", toJson(overview.lookupFiles.zipProducts)},
            {"topLevelProducts", toJson(shortNames(overview))},
            {"supportPackages", toJson(overview.supportPackages)}};
}

// A product file of any folder.
struct ProductFile {
    std::u16string product;
    std::string_view place;
    std::u16string language;
    bool isPackage;
    std::u16string fullPath;
};

// Full resource files are never packages.
std::vector<ProductFile> filesOf(const ProductOverview& overview) {
    std::vector<ProductFile> all;
    const auto add = [&](const std::vector<ProductPathData>& files, std::string_view place,
                         bool isPackage) {
        const std::u16string& language = overview.language;
        for (const ProductPathData& file : files)
            all.push_back({productOf(file, language), place,
                           file.isNonEnglishLocale() ? language : Tools::kEnglishLocale, isPackage,
                           file.getFullPath()});
    };
    add(overview.productsIn(overview.roots->referenceApiFolder).jsonProducts, "referenceApi",
        /*isPackage=*/false);
    add(overview.productsIn(overview.supportFolder).jsonProducts, "supportPackages",
        /*isPackage=*/false);
    add(overview.lookupFiles.jsonProducts, "lookup", /*isPackage=*/false);
    add(overview.lookupFiles.zipProducts, "lookup", /*isPackage=*/true);
    return all;
}

std::string jsonLinesOf(const ProductOverview& overview) {
    std::string lines;
    for (const ProductFile& file : filesOf(overview))
        lines += toJsonLine({{"product", toJson(file.product)},
                             {"place", file.place},
                             {"language", toJson(file.language)},
                             {"package", file.isPackage},
                             {"fullPath", toJson(file.fullPath)}});
    return lines;
}

std::string plainLinesOf(const ProductOverview& overview) {
    std::string lines;
    for (const ProductFile& file : filesOf(overview))
        lines += tabSeparatedLine({file.product, to_ustring(std::string(file.place)), file.language,
                                   file.isPackage ? u"yes" : u"no", file.fullPath});
    return lines;
}

// "de, ja"; each suffix is a separator and a language.
std::u16string languagesOf(const std::vector<std::u16string>& localeSuffixes) {
    std::vector<std::u16string> languages;
    languages.reserve(localeSuffixes.size());
    for (const std::u16string& suffix : localeSuffixes)
        languages.push_back(suffix.substr(1));
    return boost::join(languages, u", ");
}

void addFolders(Page& page, const ProductOverview& overview) {
    page.title(u"Folders", '-');
    Table table;
    table.addRow({{u"reference root", Paint::Dim}, {overview.roots->root}});
    table.addRow({{u"full resource files", Paint::Dim}, {overview.roots->referenceApiFolder}});
    table.addRow({{u"support packages", Paint::Dim}, {overview.supportFolder}});
    table.addRow({{u"lookup files", Paint::Dim}, {overview.roots->lookupFolder}});
    page.records(table);
}

void addLanguages(Page& page, const ProductOverview& overview) {
    page.emptyLine();
    page.title(u"Languages", '-');
    Table table;
    table.addRow({{u"current", Paint::Dim}, {overview.language}});
    table.addRow({{u"besides English", Paint::Dim}, {languagesOf(overview.localeSuffixes)}});
    page.table(0, table);
}

// Adds the files sorted by name, because the order of a folder is arbitrary.
void addFileRows(Table& table, const std::vector<ProductPathData>& files,
                 const std::u16string& language, std::u16string_view type) {
    std::multimap<std::u16string_view, const ProductPathData*> byName;
    for (const ProductPathData& file : files)
        byName.emplace(file.getName(), &file);
    for (const auto& [name, file] : byName)
        table.addRow({{file->getName()},
                      {file->isNonEnglishLocale() ? language : Tools::kEnglishLocale},
                      {std::u16string(type)},
                      {file->getFullPath(), Paint::Dim}});
}

void addTable(Page& page, const Table& table, std::u16string_view ifEmpty) {
    if (table.isEmpty())
        page.text(0, ifEmpty);
    else
        page.records(table);
}

void addFiles(Page& page, std::u16string_view title, const ProductLists& files,
              const std::u16string& language, bool withPackages) {
    page.emptyLine();
    page.title(title, '-');
    Table table({u"Name", u"Language", u"Kind", u"File"});
    addFileRows(table, files.jsonProducts, language, withPackages ? u"plain file" : u"");
    if (withPackages)
        addFileRows(table, files.zipProducts, language, u"zip package");
    addTable(page, table, u"none found");
}

void addInstalled(Page& page, const ProductOverview& overview) {
    page.emptyLine();
    page.title(u"Installed products", '-');
    Table table({u"Name", u"Display name", u"Help location"});
    for (const auto& product : *overview.topLevelProducts)
        table.addRow({{to_ustring(product->getShortName())},
                      {to_ustring(product->getDisplayName())},
                      {to_ustring(product->getHelpLocation()), Paint::Dim}});
    addTable(page, table, u"none");

    page.emptyLine();
    page.title(u"Installed support packages", '-');
    for (const std::u16string& name : overview.supportPackages)
        page.words(0, {{name}});
    if (overview.supportPackages.empty())
        page.text(0, u"none");
}

std::string pageOf(const ProductOverview& overview, const PageSetup& setup) {
    Page page(setup);
    addFolders(page, overview);
    addLanguages(page, overview);
    addFiles(page, u"Full resource files", overview.productsIn(overview.roots->referenceApiFolder),
             overview.language, /*withPackages=*/false);
    addFiles(page, u"Full resource files of support packages",
             overview.productsIn(overview.supportFolder), overview.language,
             /*withPackages=*/false);
    addFiles(page, u"Lookup files", overview.lookupFiles, overview.language,
             /*withPackages=*/true);
    addInstalled(page, overview);
    return page.take();
}

Answer runProducts(const Options& options, const PageSetup& setup) {
    const ProductOverview overview;
    switch (options.format) {
    case OutputFormat::Json: return {.output = toIndentedJson(documentOf(overview))};
    case OutputFormat::JsonLines: return {.output = jsonLinesOf(overview)};
    case OutputFormat::Plain: return {.output = plainLinesOf(overview)};
    case OutputFormat::Text: break;
    }
    return {.output = pageOf(overview, setup)};
}

} // namespace

CommandEntry productsCommand() {
    return {
        .name = "products",
        .help = "List the product files, installed products, support packages, languages and "
                "folders",
        .description =
            "The lists show which files the other commands read, and from which folders.",
        .options = {plainOption("Print one file per line, with tabs between product, folder, "
                                "language, yes or no for package, and path")},
        .examples = {{"refdoc --install samples products",
                      "List what the folder samples contains."}},
        .run = runProducts,
    };
}

} // namespace refdoc
