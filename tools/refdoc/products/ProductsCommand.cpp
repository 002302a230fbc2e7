#include "tools/refdoc/products/ProductsCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "docparser/json/ToJson.hpp"
#include "platform/HostServices.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/products/Inventory.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/DisplayText.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <boost/algorithm/string/join.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace reference::json {

// Not constexpr: on Windows, the address of an imported function is known only at load time.
template <>
inline const auto kFields<docparser::ProductPathData> =
    std::tuple{Field{"name", &docparser::ProductPathData::getName},
               Field{"nonEnglishLocale", &docparser::ProductPathData::isNonEnglishLocale},
               Field{"fullPath", &docparser::ProductPathData::getFullPath}};

template <>
inline const auto kFields<refdoc::ProductInventory> =
    std::tuple{Field{"product", &refdoc::ProductInventory::product},
               Field{"languages", &refdoc::ProductInventory::languages},
               Field{"items", &refdoc::ProductInventory::items},
               Field{"translations", &refdoc::ProductInventory::translations}};

} // namespace reference::json

namespace refdoc {

using docproduct::TopLevelDocProduct;
using fl::i18n::to_ustring;
using reference::docparser::DocResourceParser;
using reference::docparser::ProductLists;
using reference::docparser::ProductPathData;
using reference::docparser::ReferenceRoots;
using reference::json::toJson;
using Tools = DocResourceParser::ParsingTools;

namespace {

// What the command prints, in any format.
struct ProductOverview {
    explicit ProductOverview(Origins from) : origins(std::move(from)) {}

    Origins origins;
    std::u16string installFolder = platform::hostServices()->installPath();
    std::shared_ptr<const ReferenceRoots> roots = DocResourceParser::getReferenceRoots();
    std::u16string supportFolder = refdoc::supportFolder();
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
    const Inventory inventory = takeInventory();
    const Origins& origins = overview.origins;
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
            {"supportPackages", toJson(overview.supportPackages)},
            {"installFolder", toJson(overview.installFolder)},
            {"origins",
             {{"installFolder", origins.installFolder},
              {"root", origins.referenceRoot},
              {"language", origins.language}}},
            {"products", toJson(inventory.products)},
            {"undocumented", toJson(inventory.undocumented)}};
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
    table.addRow({{u"install folder", Paint::Dim}, {overview.installFolder}});
    table.addRow({{u"reference root", Paint::Dim}, {overview.roots->root}});
    table.addRow({{u"full resource files", Paint::Dim}, {overview.roots->referenceApiFolder}});
    table.addRow({{u"support packages", Paint::Dim},
                  {overview.supportFolder.empty() ? u"none" : overview.supportFolder}});
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

void addOrigins(Page& page, const Origins& origins) {
    page.emptyLine();
    page.title(u"Origins", '-');
    Table table;
    table.addRow({{u"install folder", Paint::Dim}, {to_ustring(origins.installFolder)}});
    table.addRow({{u"reference root", Paint::Dim}, {to_ustring(origins.referenceRoot)}});
    table.addRow({{u"language", Paint::Dim}, {to_ustring(origins.language)}});
    page.table(0, table);
}

// "de 12, ja 7"
std::u16string translationsOf(const ProductInventory& product) {
    std::vector<std::u16string> counts;
    for (const auto& [language, count] : product.translations)
        counts.push_back(language + u' ' + to_ustring(std::to_string(count)));
    return boost::join(counts, u", ");
}

void addInventory(Page& page, const std::vector<ProductInventory>& products) {
    page.emptyLine();
    page.title(u"Products", '-');
    Table table({u"Product", u"Items", u"Translations", u"Remark"});
    for (const ProductInventory& product : products)
        table.addRow({{product.product},
                      {to_ustring(std::to_string(product.items))},
                      {translationsOf(product)},
                      {product.languages.empty() ? u"no usable file" : u""}});
    if (table.isEmpty())
        page.text(0, u"none found");
    else
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

void addInstalled(Page& page, const ProductOverview& overview, const Inventory& inventory) {
    const auto remarkOn = [&](const std::u16string& name) -> Cell {
        const bool isDocumented = !std::ranges::binary_search(inventory.undocumented, name);
        return {isDocumented ? u"" : u"no documentation"};
    };
    page.emptyLine();
    page.title(u"Installed products", '-');
    Table products({u"Name", u"Display name", u"Help location", u"Remark"});
    for (const auto& product : *overview.topLevelProducts) {
        const std::u16string name = to_ustring(product->getShortName());
        products.addRow({{name},
                         {to_ustring(product->getDisplayName())},
                         {to_ustring(product->getHelpLocation()), Paint::Dim},
                         remarkOn(name)});
    }
    addTable(page, products, u"none");

    page.emptyLine();
    page.title(u"Installed support packages", '-');
    Table packages;
    for (const std::u16string& name : overview.supportPackages)
        packages.addRow({{name}, remarkOn(name)});
    addTable(page, packages, u"none");
}

std::string pageOf(const ProductOverview& overview, const PageSetup& setup) {
    const Inventory inventory = takeInventory();
    Page page(setup);
    addFolders(page, overview);
    addLanguages(page, overview);
    addOrigins(page, overview.origins);
    addInventory(page, inventory.products);
    addFiles(page, u"Full resource files", overview.productsIn(overview.roots->referenceApiFolder),
             overview.language, /*withPackages=*/false);
    addFiles(page, u"Full resource files of support packages",
             overview.productsIn(overview.supportFolder), overview.language,
             /*withPackages=*/false);
    addFiles(page, u"Lookup files", overview.lookupFiles, overview.language,
             /*withPackages=*/true);
    addInstalled(page, overview, inventory);
    return page.take();
}

// Empty lists alone would not tell an empty root from a wrong one.
std::vector<std::string> complaintsAbout(const ReferenceRoots& roots) {
    std::error_code unknown;
    if (std::filesystem::exists(std::filesystem::path(roots.root), unknown))
        return {};
    return {
        fmt::format("the reference root {} does not exist{}", quoted(roots.root), kOtherFolders)};
}

Answer runProducts(const Options& options, const PageSetup& setup) {
    const ProductOverview overview(options.origins);
    switch (options.format) {
    case OutputFormat::Json: return {.output = toIndentedJson(documentOf(overview))};
    case OutputFormat::JsonLines: return {.output = jsonLinesOf(overview)};
    case OutputFormat::Plain: return {.output = plainLinesOf(overview)};
    case OutputFormat::Text: break;
    }
    return {.output = pageOf(overview, setup), .complaints = complaintsAbout(*overview.roots)};
}

} // namespace

CommandEntry productsCommand() {
    return {
        .name = "products",
        .help = "List the products, their languages and files, what is installed, and the "
                "folders that are read",
        .description = "Each product is listed with the number of its records in English and in "
                       "each other supported language. Installed products without full resources "
                       "and lookup entries are marked. The other lists show which files the other "
                       "commands read, from which folders, and why from these.",
        .options = {plainOption("Print one file per line, with tabs between product, folder, "
                                "language, yes or no for package, and path")},
        .examples = {{"refdoc --install samples products",
                      "List what the folder samples contains."}},
        .run = runProducts,
    };
}

} // namespace refdoc
