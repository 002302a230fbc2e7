#include "tools/refdoc/show/ShowCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
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

Answer productNotFound(const Options& options) {
    Answer answer{.status = ExitStatus::NotFound,
                  .complaints = {complaintAboutProduct(options.product)}};
    if (options.format == OutputFormat::Json)
        answer.output = showDocument(options.product, {});
    return answer;
}

std::string pageOf(const Options& options, const ResourceMap<RefItem>& resources,
                   const PageSetup& setup) {
    const EnglishFallback fallback(options.product);
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
    case OutputFormat::Json: return showDocument(options.product, resources);
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

Answer runShow(const Options& options, const PageSetup& setup) {
    ResourceMap<RefItem> resources;
    try {
        resources = DocResourceParser::getResourceFile(options.product);
    } catch (const DocParserException&) {
        return productNotFound(options);
    }

    Answer answer;
    if (!options.names.empty()) {
        // Suggestions need all sections, so they come before keepOnly().
        answer.complaints = complaintsAboutHrefs(options.product, options.names, resources);
        keepOnly(options.names, resources);
    }
    if (!answer.complaints.empty())
        answer.status = ExitStatus::NotFound;
    answer.output = outputOf(options, resources, setup);
    return answer;
}

} // namespace refdoc
