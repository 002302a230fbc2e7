#include "tools/refdoc/show/ShowCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/json/JsonLines.hpp"
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

Answer productNotFound(const Options& options) {
    Answer answer{.status = ExitStatus::Negative,
                  .complaints = {complaintAboutProduct(productArgument(options))}};
    if (options.format == OutputFormat::Json)
        answer.output = showDocument(productArgument(options), {});
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
    case OutputFormat::Json: return showDocument(productArgument(options), resources);
    case OutputFormat::JsonLines: {
        std::string lines;
        addRecordLines(lines, resources, DocResourceParser::ParsingTools::getCurrentLocale(),
                       &DocResourceParser::isProductInstalled);
        return lines;
    }
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
        // Before the sections lose what was not asked for.
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
        "show",
        "Print the full records of one product",
        "Prints all records of the product, or only the items with the given links. Records that "
        "the translation lacks are printed in English and marked.",
        {{"PRODUCT", ValueType::Product, true, false,
          "The name of the product's resource file, without .json"},
         {"HREF", ValueType::Href, false, true, "Print only the items with these links"}},
        {},
        runShow};
}

} // namespace refdoc
