#include "tools/refdoc/show/ShowCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/RecordLines.hpp"
#include "tools/refdoc/session/EnglishFallback.hpp"
#include "tools/refdoc/session/ProductNames.hpp"
#include "tools/refdoc/session/Selection.hpp"
#include "tools/refdoc/show/ItemText.hpp"
#include "tools/refdoc/suggest/NearNames.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Page.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

namespace refdoc {

using fl::i18n::to_string;
using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
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

const std::u16string& productArgument(const Options& options) {
    return options.arguments.front();
}

std::string documentOf(const Options& options, const ResourceMap<RefItem>& resources) {
    return toIndentedJson(
        {{"product", toJson(productArgument(options))}, {"resources", toJson(resources)}});
}

Answer productNotFound(const Options& options) {
    Answer answer{.status = ExitStatus::Negative,
                  .complaints = {complaintAboutProduct(productArgument(options))}};
    if (options.format == OutputFormat::Json)
        answer.output = documentOf(options, {});
    return answer;
}

std::string pageOf(const Options& options, const ResourceMap<RefItem>& resources,
                   const PageSetup& setup) {
    const EnglishFallback fallback(productArgument(options));
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

std::string outputOf(const Options& options, const ResourceMap<RefItem>& resources,
                     const PageSetup& setup) {
    switch (options.format) {
    case OutputFormat::Json: return documentOf(options, resources);
    case OutputFormat::JsonLines:
        return recordLines(resources, DocResourceParser::ParsingTools::getCurrentLocale(),
                           &DocResourceParser::isProductInstalled);
    case OutputFormat::Text: break;
    }
    return pageOf(options, resources, setup);
}

Answer runShow(const Options& options, const PageSetup& setup) {
    ResourceMap<RefItem> resources;
    try {
        resources = DocResourceParser::getResourceFile(productArgument(options));
    } catch (const DocParserException&) {
        return productNotFound(options);
    }

    Answer answer;
    const std::vector<std::u16string> hrefs(options.arguments.begin() + 1, options.arguments.end());
    if (!hrefs.empty()) {
        // First, because similar hrefs are looked for in all items.
        answer.complaints = complaintsAboutHrefs(productArgument(options), hrefs, resources);
        keepOnly(hrefs, resources);
    }
    if (!answer.complaints.empty())
        answer.status = ExitStatus::Negative;
    answer.output = outputOf(options, resources, setup);
    return answer;
}

} // namespace

std::string complaintAboutProduct(const std::u16string& product) {
    const std::string name = to_string(product);
    const std::vector<std::u16string> products = productNames();
    return fmt::format("no resources for {}; tried {}, {}{}", quoted(product),
                       triedPlace(name, DocResourceParser::getReferenceRoots()->referenceApiFolder),
                       triedPlace(name, *DocResourceParser::getSupportPackageRoot()),
                       didYouMean(nearNames(product, {products.begin(), products.end()}),
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
        .description = "With HREFs, only the items with these links are printed. Records that the "
                       "translation lacks are printed in English and marked.",
        .arguments = {{.name = "PRODUCT",
                       .type = ValueType::Product,
                       .isRequired = true,
                       .help = "The name of the product's resource file, without .json"},
                      {.name = "HREF",
                       .type = ValueType::Href,
                       .isList = true,
                       .help = "Print only the items with these links"}},
        .run = runShow,
    };
}

} // namespace refdoc
