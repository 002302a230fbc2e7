#include "tools/refdoc/translations/TranslationsCommand.hpp"

#include "docparser/account/LoadAccount.hpp"
#include "platform/i18n/Converter.hpp"
#include "platform/terminal/OutputDevice.hpp"
#include "tools/refdoc/cli/Number.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/session/Selection.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"
#include "tools/refdoc/terminal/Progress.hpp"
#include "tools/refdoc/terminal/Words.hpp"
#include "tools/refdoc/translations/Damage.hpp"
#include "tools/refdoc/translations/ReportReader.hpp"
#include "tools/refdoc/translations/formats/EntryWords.hpp"
#include "tools/refdoc/translations/formats/ReportFormats.hpp"

#include <fmt/format.h>

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace refdoc {

using namespace translations;

namespace {

// The percentage of --fail-under, by default 0.
std::size_t thresholdOf(const OptionValues& values) {
    const std::optional<std::string> value = values.value("--fail-under");
    if (!value)
        return 0;
    const std::optional<std::size_t> percent = numberFrom(*value);
    if (!percent || *percent > 100)
        throw UsageError(fmt::format("--fail-under must be a number from 0 to 100, not \"{}\"; "
                                     "see refdoc translations --help",
                                     *value));
    return *percent;
}

std::string outputOf(const Report& report, const Options& options, const PageSetup& setup) {
    const Depth depth = options.values.has("--details") ? Depth::Entries : Depth::Numbers;
    if (options.values.has("--csv"))
        return toCsv(report, depth);
    if (options.values.has("--markdown"))
        return toMarkdown(report, depth);
    switch (options.format) {
    case OutputFormat::Json: return toJsonDocument(report, depth);
    case OutputFormat::JsonLines: return toJsonLines(report, depth);
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return toText(report, depth, setup);
}

void addComplaint(Answer& answer, std::string complaint) {
    answer.status = ExitStatus::Negative;
    answer.complaints.push_back(std::move(complaint));
}

void complainAboutProducts(const std::vector<std::u16string>& products, const Report& report,
                           Answer& answer) {
    std::set<std::u16string> found;
    for (const ProductReport& product : report.products)
        found.insert(product.product);
    for (const std::u16string& product : missingKeys(products, found))
        addComplaint(answer, complaintAboutProduct(product, reference::docparser::LoadAccount()));
}

void complainAboutShares(const Report& report, std::size_t threshold, Answer& answer) {
    const std::vector<Totals> totals = totalsOf(report);
    for (std::size_t index = 0; index < totals.size(); ++index) {
        const auto complain = [&](const Counts& counts, std::string_view what) {
            if (counts.isBelow(threshold))
                addComplaint(answer,
                             fmt::format("{}: {} % of the {} are translated, less than {} %",
                                         quoted(report.languages[index]), percentText(counts), what,
                                         threshold));
        };
        complain(totals[index].items, "items");
        complain(totals[index].lookup, "lookup entries");
    }
}

Answer runTranslations(const Options& options, const PageSetup& setup) {
    const std::size_t threshold = thresholdOf(options.values);
    Progress progress(platform::askStandardError().isTerminal);
    const Report report = readReport(options.arguments, options.values.has("--details"), progress);
    Answer answer{.output = outputOf(report, options, setup)};
    for (const DamagedFile& damaged : report.damaged)
        answer.complaints.push_back(complaintAbout(damaged));
    complainAboutProducts(options.arguments, report, answer);
    complainAboutShares(report, threshold, answer);
    return answer;
}

} // namespace

CommandEntry translationsCommand() {
    return {
        .name = "translations",
        .help = "Compare the translations with English: how complete and how current they are",
        .description =
            "For each product and supported language, the items and the lookup entries are "
            "counted that are in English, translated, missing, orphaned (English lacks them; most "
            "are renamed pages), identical (no text differs from the English one) and out of step "
            "(the English one has other inputs, outputs, syntaxes, properties or parameters). "
            "Dropped are lookup entries that a language file has, but the merge drops.",
        .arguments = {{.name = "PRODUCT",
                       .type = ValueType::Product,
                       .isList = true,
                       .help = "Compare only these products, by default all"}},
        .options = {{.name = "--details",
                     .help = "List the items and entries that are not translated or not current, "
                             "with their files and lines"},
                    {.name = "--csv",
                     .help = "Print comma-separated values",
                     .group = kFormatGroup},
                    {.name = "--markdown",
                     .help = "Print Markdown, for a pull request",
                     .group = kFormatGroup},
                    {"--fail-under", "N", ValueType::Name,
                     "Exit with status 1 if, in a language, less than N percent of the items or of "
                     "the lookup entries are translated"}},
        .negative = "A product does not exist, or a language is below the limit of --fail-under.",
        .examples = {{"refdoc --install samples translations",
                      "Compare the translations of the samples."}},
        .run = runTranslations,
    };
}

} // namespace refdoc
