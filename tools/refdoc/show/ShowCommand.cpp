#include "tools/refdoc/show/ShowCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/json/ProductDocument.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Number.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/json/RecordLines.hpp"
#include "tools/refdoc/lookup/EntryCells.hpp"
#include "tools/refdoc/lookup/LookupCommand.hpp"
#include "tools/refdoc/session/EnglishFallback.hpp"
#include "tools/refdoc/session/LookupIndex.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/session/Selection.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"
#include "tools/refdoc/show/ItemText.hpp"
#include "tools/refdoc/show/NamedItems.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

namespace refdoc {

using fl::i18n::to_string;
using fl::i18n::to_ustring;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::FileAccount;
using reference::docparser::LoadAccount;
using reference::docparser::ResourceMap;
using reference::property::RefItem;

namespace {

// "FOLDER (P.json, P_ja.json)"
std::string triedPlace(const std::string& product, const std::u16string& folder) {
    using Tools = DocResourceParser::ParsingTools;
    std::string files = product + ".json";
    if (const std::u16string language = Tools::getCurrentLocale();
        language != Tools::kEnglishLocale)
        files += fmt::format(", {}_{}.json", product, to_string(language));
    return fmt::format("{} ({})", to_string(folder), files);
}

// The places in the order they are tried.
std::string triedPlaces(const std::string& product) {
    std::string places =
        triedPlace(product, DocResourceParser::getReferenceRoots()->referenceApiFolder);
    if (const std::u16string support = supportFolder(); !support.empty())
        places += ", " + triedPlace(product, support);
    return places;
}

// The complaint about the first malformed file; absent if there is none.
std::optional<std::string> complaintAboutDamage(const LoadAccount& account) {
    const auto file = std::ranges::find(account.files, Fate::Malformed, &FileAccount::fate);
    if (file == account.files.end())
        return std::nullopt;
    const std::string position =
        file->place ? fmt::format(" at {}:{}", file->place->line, file->place->column) : "";
    return fmt::format("{} is malformed{}: {}; run refdoc check", to_string(file->path), position,
                       file->reason);
}

std::string documentOf(const std::u16string& product, const ResourceMap<RefItem>& resources) {
    return toIndentedJson(reference::json::productDocument(product, resources));
}

Answer notFound(const Options& options, std::string complaint) {
    Answer answer{.status = ExitStatus::Negative, .complaints = {std::move(complaint)}};
    if (options.format == OutputFormat::Json)
        answer.output = documentOf(options.arguments.front(), {});
    return answer;
}

std::string pageOf(const std::u16string& product, const ResourceMap<RefItem>& resources,
                   const PageSetup& setup) {
    const EnglishFallback fallback(product);
    Page page(setup);
    for (const auto& [key, resource] : resources) {
        if (!page.isEmpty())
            page.emptyLine();
        addHeader(page, resource.header, fallback.noteOn(key));
        for (const auto& [href, items] : resource.items) {
            const std::u16string note = fallback.noteOn(key, href, items);
            for (const RefItem& item : items) {
                page.emptyLine();
                addItem(page, item, note);
            }
        }
    }
    return page.take();
}

std::string outputOf(const std::u16string& product, const Options& options,
                     const ResourceMap<RefItem>& resources, const PageSetup& setup) {
    switch (options.format) {
    case OutputFormat::Json: return documentOf(product, resources);
    case OutputFormat::JsonLines:
        return recordLines(resources, DocResourceParser::ParsingTools::getCurrentLocale(),
                           &DocResourceParser::isProductInstalled);
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return pageOf(product, resources, setup);
}

std::optional<ResourceMap<RefItem>> readProduct(const std::u16string& product,
                                                LoadAccount& account) {
    const LoadAccount::Scope scope(account);
    try {
        return DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        return std::nullopt;
    }
}

// Shows the whole product, or its items with these hrefs if there are any.
Answer showProduct(const std::u16string& product, const std::vector<std::u16string>& hrefs,
                   ResourceMap<RefItem> resources, const Options& options, const PageSetup& setup) {
    Answer answer;
    if (!hrefs.empty()) {
        // First, because similar hrefs are looked for in all items.
        answer.complaints = complaintsAboutHrefs(product, hrefs, resources);
        keepOnly(hrefs, resources);
    }
    if (!answer.complaints.empty())
        answer.status = ExitStatus::Negative;
    answer.output = outputOf(product, options, resources, setup);
    return answer;
}

Answer showItem(const NamedItem& item, const Options& options, const PageSetup& setup) {
    LoadAccount account;
    std::optional<ResourceMap<RefItem>> resources = readProduct(item.product, account);
    if (!resources)
        return notFound(options, complaintAboutProduct(item.product, account));
    return showProduct(item.product, {item.entry.getHref()}, std::move(*resources), options, setup);
}

// A list of the items, each with the number that picks it.
Answer listItems(const std::u16string& name, const std::vector<NamedItem>& items,
                 const EnglishEntries& english, const Options& options, const PageSetup& setup) {
    const std::string remedy =
        fmt::format("refdoc show {} --pick N prints item N of {}", quoted(name), items.size());
    if (options.format != OutputFormat::Text)
        return notFound(options, fmt::format("{} names several items; {}", quoted(name), remedy));
    std::vector<std::vector<Cell>> installed;
    std::vector<std::vector<Cell>> notInstalled;
    for (const NamedItem& item : items) {
        std::vector<Cell> cells = entryCells(
            item.entry, item.product, {.isEnglish = english.hasEntry(item.section, item.entry)});
        const std::size_t number = installed.size() + notInstalled.size() + 1;
        cells.insert(cells.begin(), {to_ustring(std::to_string(number)), Paint::Dim});
        (item.isInstalled ? installed : notInstalled).push_back(std::move(cells));
    }
    Page page(setup);
    page.records(groupedEntries(std::move(installed), std::move(notInstalled)));
    page.emptyLine();
    page.text(0, to_ustring(remedy));
    return {.output = page.take()};
}

Answer showPicked(const std::vector<NamedItem>& items, const std::string& value,
                  const Options& options, const PageSetup& setup) {
    const std::optional<std::size_t> number = numberFrom(value);
    if (!number || *number == 0 || *number > items.size())
        return {.status = ExitStatus::WrongUsage,
                .complaints = {fmt::format("--pick must be a number from 1 to {}, not \"{}\"",
                                           items.size(), value)}};
    return showItem(items[*number - 1], options, setup);
}

// Shows the item of a name, or the picked one of several.
Answer showNamed(const LoadAccount& account, const Options& options, const PageSetup& setup) {
    const std::u16string& name = options.arguments.front();
    const auto [index, english] = readLookupIndex();
    const std::vector<NamedItem> items = itemsNamed(name, index);
    if (items.empty())
        return notFound(options, complaintAboutProduct(name, account, namesOf(index)));
    if (const std::optional<std::string> pick = options.values.value("--pick"))
        return showPicked(items, *pick, options, setup);
    return items.size() == 1 ? showItem(items.front(), options, setup)
                             : listItems(name, items, english, options, setup);
}

Answer runShow(const Options& options, const PageSetup& setup) {
    const std::u16string& name = options.arguments.front();
    const std::vector<std::u16string> others(options.arguments.begin() + 1,
                                             options.arguments.end());
    LoadAccount account;
    if (!options.values.has("--pick")) {
        if (std::optional<ResourceMap<RefItem>> resources = readProduct(name, account)) {
            const std::vector<std::u16string> hrefs = hrefsFor(others, name, *resources);
            return showProduct(name, hrefs, std::move(*resources), options, setup);
        }
        if (!others.empty() || complaintAboutDamage(account))
            return notFound(options, complaintAboutProduct(name, account));
    } else if (!others.empty()) {
        return {.status = ExitStatus::WrongUsage,
                .complaints = {"--pick needs a NAME alone; see refdoc show --help"}};
    }
    return showNamed(account, options, setup);
}

} // namespace

std::string complaintAboutProduct(const std::u16string& product, const LoadAccount& account,
                                  std::vector<std::u16string_view> otherNames) {
    if (std::optional<std::string> damage = complaintAboutDamage(account))
        return std::move(*damage);
    const std::vector<std::u16string> products = productNames();
    otherNames.insert(otherNames.end(), products.begin(), products.end());
    return fmt::format("no resources for {}; tried {}{}", quoted(product),
                       triedPlaces(to_string(product)),
                       didYouMean(nearNames(product, otherNames),
                                  products.empty() ? kOtherFolders : "; see refdoc products"));
}

std::vector<std::string> complaintsAboutHrefs(const std::u16string& product,
                                              const std::vector<std::u16string>& hrefs,
                                              const ResourceMap<RefItem>& resources) {
    std::vector<std::string> complaints;
    for (const std::u16string& href : missingKeys(hrefs, keysIn(hrefs, resources)))
        complaints.push_back(fmt::format(
            "no item {} in {}{}", quoted(href), quoted(product),
            didYouMean(nearHrefs(href, resources), "; see refdoc show " + quoted(product))));
    return complaints;
}

CommandEntry showCommand() {
    return {
        .name = "show",
        .help = "Print the full records of one product",
        .description = "With HREFs, only the items with these links or names are printed. Records "
                       "that the translation lacks are printed in English and marked. If there is "
                       "no such product, but the lookup index has PRODUCT as a name, the item of "
                       "this name is printed; several items are listed with numbers.",
        .arguments = {{.name = "PRODUCT",
                       .type = ValueType::Product,
                       .isRequired = true,
                       .help = "The name of the product's resource file, without .json, or a name "
                               "in the lookup index"},
                      {.name = "HREF",
                       .type = ValueType::Href,
                       .isList = true,
                       .help = "Print only the items with these links or names"}},
        .options = {{"--pick", "N", ValueType::Name,
                     "Print the N-th item that the lookup index has under the name"}},
        .negative = "The product, the name, or one of the links does not exist.",
        .examples = {{"refdoc --install samples --lang ja show Orchard ref/smooth.html",
                      "Print one item of the product Orchard in Japanese."},
                     {"refdoc --install samples show smooth",
                      "Print the item that documents the name smooth."}},
        .run = runShow,
    };
}

} // namespace refdoc
