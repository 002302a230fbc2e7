#include "tools/refdoc/products/ProductsCommand.hpp"

#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonWriter.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <algorithm>
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

namespace {

// Everything that the command tells, gathered before a word is written.
struct Findings {
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

void writeTexts(JsonWriter& json, std::string_view name, const std::vector<std::u16string>& texts) {
    json.key(name);
    json.beginArray();
    for (const std::u16string& text : texts)
        json.text(text);
    json.endArray();
}

void writeFiles(JsonWriter& json, std::string_view name,
                const std::vector<ProductPathData>& files) {
    json.key(name);
    json.beginArray();
    for (const ProductPathData& file : files) {
        json.beginObject();
        json.member("name", file.getName());
        json.key("nonEnglishLocale");
        json.boolean(file.isNonEnglishLocale());
        json.member("fullPath", file.getFullPath());
        json.endObject();
    }
    json.endArray();
}

std::string documentOf(const Findings& findings) {
    JsonWriter json;
    json.beginObject();
    json.key("roots");
    json.beginObject();
    json.member("root", findings.roots->root);
    json.member("lookupFolder", findings.roots->lookupFolder);
    json.member("referenceApiFolder", findings.roots->referenceApiFolder);
    json.member("supportPackageFolder", findings.supportFolder);
    json.endObject();
    json.member("language", findings.language);
    writeTexts(json, "localeSuffixes", findings.localeSuffixes);
    writeFiles(json, "jsonProducts", findings.lookupFiles.jsonProducts);
    writeFiles(json, "zipProducts", findings.lookupFiles.zipProducts);
    json.key("topLevelProducts");
    json.beginArray();
    for (const auto& product : *findings.topLevelProducts)
        json.text(to_ustring(product->getShortName()));
    json.endArray();
    writeTexts(json, "supportPackages", findings.supportPackages);
    json.endObject();
    return json.take();
}

void addFileLines(std::string& lines, const std::vector<ProductPathData>& files,
                  const std::u16string& language, std::string_view place, bool isPackage) {
    for (const ProductPathData& file : files) {
        JsonWriter json(JsonWriter::Layout::OneLine);
        json.beginObject();
        json.member("product", productOf(file, language));
        json.key("place");
        json.word(place);
        json.member("language", file.isNonEnglishLocale() ? language : Tools::kEnglishLocale);
        json.key("package");
        json.boolean(isPackage);
        json.member("fullPath", file.getFullPath());
        json.endObject();
        lines += json.take();
    }
}

// A line for each product file; full resource files are plain ones.
std::string linesOf(const Findings& findings) {
    std::string lines;
    addFileLines(lines, findings.productsIn(findings.roots->referenceApiFolder).jsonProducts,
                 findings.language, "referenceApi", /*isPackage=*/false);
    addFileLines(lines, findings.productsIn(findings.supportFolder).jsonProducts, findings.language,
                 "supportPackages", /*isPackage=*/false);
    addFileLines(lines, findings.lookupFiles.jsonProducts, findings.language, "lookup",
                 /*isPackage=*/false);
    addFileLines(lines, findings.lookupFiles.zipProducts, findings.language, "lookup",
                 /*isPackage=*/true);
    return lines;
}

// "de, ja"; each suffix is a separator and a language.
std::u16string languagesOf(const std::vector<std::u16string>& localeSuffixes) {
    std::u16string languages;
    for (const std::u16string& suffix : localeSuffixes)
        languages += (languages.empty() ? u"" : u", ") + suffix.substr(1);
    return languages;
}

void addFolders(Page& page, const Findings& findings) {
    page.title(u"Folders", '-');
    Table table;
    table.addRow({{u"reference root", Paint::Dim}, {findings.roots->root}});
    table.addRow({{u"full resource files", Paint::Dim}, {findings.roots->referenceApiFolder}});
    table.addRow({{u"support packages", Paint::Dim}, {findings.supportFolder}});
    table.addRow({{u"lookup files", Paint::Dim}, {findings.roots->lookupFolder}});
    page.index(table);
}

void addLanguages(Page& page, const Findings& findings) {
    page.emptyLine();
    page.title(u"Languages", '-');
    Table table;
    table.addRow({{u"current", Paint::Dim}, {findings.language}});
    table.addRow({{u"besides English", Paint::Dim}, {languagesOf(findings.localeSuffixes)}});
    page.table(0, table);
}

// By name, for the folder has no order that people would see through.
void addFileRows(Table& table, std::vector<const ProductPathData*> files,
                 const std::u16string& language, std::u16string_view kind) {
    std::ranges::sort(files, {}, [](const ProductPathData* file) { return file->getName(); });
    for (const ProductPathData* file : files)
        table.addRow({{file->getName()},
                      {file->isNonEnglishLocale() ? language : Tools::kEnglishLocale},
                      {std::u16string(kind)},
                      {file->getFullPath(), Paint::Dim}});
}

std::vector<const ProductPathData*> pointers(const std::vector<ProductPathData>& files) {
    std::vector<const ProductPathData*> pointers;
    for (const ProductPathData& file : files)
        pointers.push_back(&file);
    return pointers;
}

void addFiles(Page& page, std::u16string_view title, const ProductLists& files,
              const std::u16string& language, bool withPackages) {
    page.emptyLine();
    page.title(title, '-');
    Table table({u"Name", u"Language", u"Kind", u"File"});
    addFileRows(table, pointers(files.jsonProducts), language, withPackages ? u"plain file" : u"");
    if (withPackages)
        addFileRows(table, pointers(files.zipProducts), language, u"zip package");
    if (table.isEmpty())
        page.text(0, u"none found");
    else
        page.index(table);
}

void addInstalled(Page& page, const Findings& findings) {
    page.emptyLine();
    page.title(u"Installed products", '-');
    Table table({u"Name", u"Display name", u"Help location"});
    for (const auto& product : *findings.topLevelProducts)
        table.addRow({{to_ustring(product->getShortName())},
                      {to_ustring(product->getDisplayName())},
                      {to_ustring(product->getHelpLocation()), Paint::Dim}});
    if (table.isEmpty())
        page.text(0, u"none");
    else
        page.index(table);

    page.emptyLine();
    page.title(u"Installed support packages", '-');
    for (const std::u16string& name : findings.supportPackages)
        page.words(0, {{name}});
    if (findings.supportPackages.empty())
        page.text(0, u"none");
}

std::string pageOf(const Findings& findings, const PageSetup& setup) {
    Page page(setup);
    addFolders(page, findings);
    addLanguages(page, findings);
    addFiles(page, u"Full resource files", findings.productsIn(findings.roots->referenceApiFolder),
             findings.language, /*withPackages=*/false);
    addFiles(page, u"Full resource files of support packages",
             findings.productsIn(findings.supportFolder), findings.language,
             /*withPackages=*/false);
    addFiles(page, u"Lookup files", findings.lookupFiles, findings.language,
             /*withPackages=*/true);
    addInstalled(page, findings);
    return page.take();
}

Answer runProducts(const Options& options, const PageSetup& setup) {
    const Findings findings;
    switch (options.format) {
    case OutputFormat::Json: return {.output = documentOf(findings)};
    case OutputFormat::JsonLines: return {.output = linesOf(findings)};
    case OutputFormat::Text: break;
    }
    return {.output = pageOf(findings, setup)};
}

} // namespace

CommandEntry productsCommand() {
    return {"products",
            "List the product files, installed products, support packages, languages and folders",
            "Prints which files the other commands read, and from which folders.",
            {},
            {},
            runProducts};
}

} // namespace refdoc
