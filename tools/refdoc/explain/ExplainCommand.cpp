#include "tools/refdoc/explain/ExplainCommand.hpp"

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/explain/Explanation.hpp"
#include "tools/refdoc/lookup/LookupCommand.hpp"
#include "tools/refdoc/session/SupportFolder.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"

#include <utility>

namespace refdoc {

using namespace reference::docparser;
using reference::property::RefItem;
using LookupResults = ParsingResults<ResourceMap<reference::property::RefItemLookup>>;

namespace {

// Removes the sections that have neither kept nor lost records.
void keepTelling(std::vector<SectionOrigins>& sections) {
    std::erase_if(sections, [](const SectionOrigins& section) {
        return section.kept.empty() && section.lost.empty();
    });
}

std::string outputOf(const Explanation& explanation, OutputFormat format, const PageSetup& setup) {
    switch (format) {
    case OutputFormat::Json: return explanationDocument(explanation);
    case OutputFormat::JsonLines: return explanationLines(explanation);
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return explanationPage(explanation, setup);
}

Answer answerOf(const Explanation& explanation, const Options& options, const PageSetup& setup,
                std::vector<std::string> complaints) {
    return {.status = complaints.empty() ? ExitStatus::Success : ExitStatus::Negative,
            .output = outputOf(explanation, options.format, setup),
            .complaints = std::move(complaints)};
}

// \param arguments  the product and, if there is one, the href
// \param resources  set to the product's
// \returns          the complaints about a missing product or href
std::vector<std::string> readProduct(const std::vector<std::u16string>& arguments,
                                     LoadAccount& account, ResourceMap<RefItem>& resources) {
    const std::u16string& product = arguments.front();
    try {
        const LoadAccount::Scope scope(account);
        resources = DocResourceParser::getResourceFile(product);
    } catch (const DocParserException&) {
        return {complaintAboutProduct(product, account)};
    }
    return complaintsAboutHrefs(product, {arguments.begin() + 1, arguments.end()}, resources);
}

Answer explainProduct(const Options& options, const PageSetup& setup) {
    Explanation explanation{.product = options.arguments.front()};
    if (options.arguments.size() > 1)
        explanation.href = options.arguments[1];
    ResourceMap<RefItem> resources;
    std::vector<std::string> complaints =
        readProduct(options.arguments, explanation.account, resources);
    removeDisabledFolder(explanation.account);
    explanation.language = DocResourceParser::ParsingTools::getCurrentLocale();
    SectionReader reader(explanation.href);
    explanation.sections = findOrigins(explanation.account, reader);
    RecordCounts counts;
    addCounts(resources, explanation.href, counts);
    expectCounts(counts, explanation.sections);
    if (explanation.href)
        keepTelling(explanation.sections);
    return answerOf(explanation, options, setup, std::move(complaints));
}

LookupResults readIndex(LoadAccount& account) {
    const LoadAccount::Scope scope(account);
    return DocResourceParser::getResourceLookupFiles();
}

Answer explainName(const std::string& name, const Options& options, const PageSetup& setup) {
    Explanation explanation{.name = fl::i18n::to_ustring(name)};
    const LookupResults results = readIndex(explanation.account);
    explanation.language = DocResourceParser::ParsingTools::getCurrentLocale();
    SectionReader reader(explanation.name);
    explanation.sections = findOrigins(explanation.account, reader);
    RecordCounts counts;
    addCounts(results.installed, explanation.name, counts);
    addCounts(results.notInstalled, explanation.name, counts);
    expectCounts(counts, explanation.sections);
    keepTelling(explanation.sections);
    return answerOf(explanation, options, setup,
                    complaintsAboutNames({*explanation.name}, results));
}

Answer runExplain(const Options& options, const PageSetup& setup) {
    const std::optional<std::string> name = options.values.value("--name");
    return name ? explainName(*name, options, setup) : explainProduct(options, setup);
}

} // namespace

CommandEntry explainCommand() {
    return {
        .name = "explain",
        .help = "Print which file each record comes from, and what happened to the others",
        .description =
            "For each section and record of a product, or of a name in the lookup index, "
            "the output names the file or package entry and the line that it comes "
            "from, the records that it replaces and by which rule, and what happened to "
            "each candidate file.",
        .arguments = {{.name = "PRODUCT",
                       .type = ValueType::Product,
                       .help = "The name of the product's resource file, without .json",
                       .alternative = "--name"},
                      {.name = "HREF",
                       .type = ValueType::Href,
                       .help = "Explain only the item with this link"}},
        .options = {{.name = "--name",
                     .placeholder = "NAME",
                     .type = ValueType::LookupName,
                     .help = "Explain a name of the lookup index instead of a product"}},
        .negative = "The product, the link or the name does not exist.",
        .examples = {{"refdoc --install samples --lang de explain Orchard ref/smooth.html",
                      "Show which files have a record of one item."}},
        .run = runExplain,
    };
}

} // namespace refdoc
