#include "tools/refdoc/ShowCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/ItemText.hpp"
#include "tools/refdoc/JsonOutput.hpp"
#include "tools/refdoc/Page.hpp"
#include "tools/refdoc/Selection.hpp"
#include "tools/refdoc/Words.hpp"

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
    const std::string product = to_string(options.product);
    Answer answer{.status = ExitStatus::NotFound};
    if (options.format == OutputFormat::Json)
        answer.output = showDocument(options.product, {});
    answer.complaints.push_back(
        fmt::format("no resources for {}; tried {}, {}", quoted(options.product),
                    triedPlace(product, DocResourceParser::getReferenceRoots()->referenceApiFolder),
                    triedPlace(product, *DocResourceParser::getSupportPackageRoot())));
    return answer;
}

std::string pageOf(const ResourceMap<RefItem>& resources, const PageSetup& setup) {
    Page page(setup);
    for (const auto& [key, resource] : resources) {
        if (!page.isEmpty())
            page.emptyLine();
        addHeader(page, resource.header);
        for (const auto& [href, items] : resource.items) {
            for (const RefItem& item : items) {
                page.emptyLine();
                addItem(page, item);
            }
        }
    }
    return page.take();
}

} // namespace

Answer runShow(const Options& options, const PageSetup& setup) {
    ResourceMap<RefItem> resources;
    try {
        resources = DocResourceParser::getResourceFile(options.product);
    } catch (const DocParserException&) {
        return productNotFound(options);
    }

    Answer answer;
    if (!options.names.empty()) {
        std::set<std::u16string> found;
        keepOnly(options.names, resources, found);
        for (const std::u16string& href : missingKeys(options.names, std::move(found)))
            answer.complaints.push_back(
                fmt::format("no item {} in {}", quoted(href), quoted(options.product)));
    }
    if (!answer.complaints.empty())
        answer.status = ExitStatus::NotFound;
    answer.output = options.format == OutputFormat::Json ? showDocument(options.product, resources)
                                                         : pageOf(resources, setup);
    return answer;
}

} // namespace refdoc
