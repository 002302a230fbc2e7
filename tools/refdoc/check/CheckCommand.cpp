#include "tools/refdoc/check/CheckCommand.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/terminal/OutputDevice.hpp"
#include "tools/refdoc/check/CheckOptions.hpp"
#include "tools/refdoc/check/RootCheck.hpp"
#include "tools/refdoc/check/Targets.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"
#include "tools/refdoc/terminal/Progress.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace refdoc {

namespace {

using namespace check;
using fl::i18n::to_ustring;

Answer wrongUsage(std::string complaint) {
    return {.status = ExitStatus::WrongUsage, .complaints = {std::move(complaint)}};
}

std::string unknownRule(const std::string& name) {
    std::vector<std::string> known;
    for (const Rule* rule : rules())
        known.emplace_back(rule->name);
    return fmt::format("there is no rule \"{}\"{}; see refdoc check --rules", name,
                       didYouMean(name, known));
}

// Returns the first name that no rule has; empty if there is none.
std::string firstUnknown(const CheckOptions& options) {
    std::vector<std::string> names = options.errorRules;
    names.insert(names.end(), options.ignoredRules.begin(), options.ignoredRules.end());
    const auto unknown =
        std::ranges::find_if(names, [](const std::string& name) { return !findRule(name); });
    return unknown == names.end() ? std::string() : *unknown;
}

Answer explain(const std::string& name, const PageSetup& setup) {
    const Rule* rule = findRule(name);
    return rule ? Answer{.output = ruleText(*rule, setup.color)} : wrongUsage(unknownRule(name));
}

ReportSettings settingsOf(const CheckOptions& options) {
    ReportSettings settings;
    settings.ignoredRules.insert(options.ignoredRules.begin(), options.ignoredRules.end());
    settings.errorRules.insert(options.errorRules.begin(), options.errorRules.end());
    settings.isAllError = options.isAllError;
    if (!options.baseline)
        return settings;
    const std::filesystem::path file(to_ustring(*options.baseline));
    if (!std::filesystem::is_regular_file(file))
        throw std::runtime_error(fmt::format("can't read the baseline \"{}\"", *options.baseline));
    try {
        settings.knownFingerprints =
            readFingerprints(SourceTexts().read({.path = file.u16string()}));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(
            fmt::format("can't use the baseline \"{}\": {}", *options.baseline, error.what()));
    }
    return settings;
}

Findings findAll(const Options& options, PathNames& names) {
    Progress progress(platform::askStandardError().isTerminal);
    if (options.arguments.empty())
        return checkRoots(Scope::Everything, names, progress);
    Findings findings;
    for (const std::u16string& target : options.arguments)
        checkTarget(target, options, names, progress, findings);
    return findings;
}

std::string formatted(const std::vector<ReportedFinding>& findings, const Options& options,
                      const PageSetup& setup, const PathNames& names) {
    if (options.values.has("--sarif"))
        return sarifReport(findings, names.base());
    switch (options.format) {
    case OutputFormat::Json: return jsonReport(findings);
    case OutputFormat::JsonLines: return jsonLinesReport(findings);
    case OutputFormat::Text: break;
    }
    return textReport(findings, setup.color);
}

Answer runCheck(const Options& options, const PageSetup& setup) {
    if (options.values.has("--rules"))
        return {.output = ruleList(setup.color)};
    if (const std::optional<std::string> rule = options.values.value("--explain"))
        return explain(*rule, setup);
    const CheckOptions check = readCheckOptions(options.values);
    if (const std::string unknown = firstUnknown(check); !unknown.empty())
        return wrongUsage(unknownRule(unknown));

    const ReportSettings settings = settingsOf(check);
    PathNames names(std::filesystem::current_path());
    const std::vector<ReportedFinding> findings =
        makeReport(findAll(options, names), names, settings);
    const bool hasErrors =
        std::ranges::count(findings, Severity::Error, &ReportedFinding::severity) > 0;
    return {.status = hasErrors ? ExitStatus::Negative : ExitStatus::Success,
            .output = formatted(findings, options, setup, names)};
}

} // namespace

CommandEntry checkCommand() {
    return {
        .name = "check",
        .help = "Find what is silently dropped, changed or ignored",
        .description =
            "Resource files are checked as a compiler checks sources: each finding is one "
            "line. A PATH is a reference root, an install folder, a resource file, a "
            "package or an installation.json; without a PATH, the current roots are "
            "checked in all supported languages. The status is 1 if errors were found.",
        .arguments = {{.name = "PATH",
                       .type = ValueType::Path,
                       .isList = true,
                       .help = "Check only these: a reference root, an install folder, a file or a "
                               "package"}},
        .options = checkOptions(),
        .run = runCheck,
    };
}

} // namespace refdoc
