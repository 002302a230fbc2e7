#include "tools/refdoc/check/CheckCommand.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/terminal/OutputDevice.hpp"
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
#include <iterator>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
    return fmt::format("unknown rule \"{}\"{}; see refdoc check --rules", name,
                       didYouMean(name, known));
}

// Returns the first name that no rule has; empty if there is none.
std::string firstUnknown(const OptionValues& values) {
    for (const std::string_view option : {"--werror", "--ignore"}) {
        for (const std::string& name : values.values(option)) {
            if (!name.empty() && !findRule(name))
                return name;
        }
    }
    return {};
}

Answer explain(const std::string& name, const PageSetup& setup) {
    const Rule* rule = findRule(name);
    return rule ? Answer{.output = ruleText(*rule, setup.color)} : wrongUsage(unknownRule(name));
}

// Returns the fingerprints in an earlier report.
std::set<std::string, std::less<>> readBaseline(const std::string& name) {
    const std::filesystem::path file(to_ustring(name));
    if (!std::filesystem::is_regular_file(file))
        throw std::runtime_error(
            fmt::format("the baseline \"{}\" {}", name,
                        std::filesystem::exists(file) ? "is not a file" : "does not exist"));
    try {
        return readFingerprints(SourceTexts().read({.path = file.u16string()}));
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(
            fmt::format("can't use the baseline \"{}\": {}", name, error.what()));
    }
}

ReportSettings settingsOf(const Options& options) {
    ReportSettings settings;
    for (const std::string& rule : options.values.values("--werror")) {
        if (rule.empty())
            settings.isAllError = true;
        else
            settings.errorRules.insert(rule);
    }
    for (const std::string& rule : options.values.values("--ignore"))
        settings.ignoredRules.insert(rule);
    if (const std::optional<std::string> baseline = options.values.value("--baseline"))
        settings.knownFingerprints = readBaseline(*baseline);
    settings.needsFingerprints =
        options.format != OutputFormat::Text || options.values.has("--sarif");
    return settings;
}

CheckResult checkAll(const Options& options, PathNames& names) {
    Progress progress(platform::askStandardError().isTerminal);
    CheckResult result;
    if (options.arguments.empty()) {
        result = checkCurrentRoots(options, names, progress);
        for (std::string& complaint : result.complaints)
            complaint += kOtherFolders;
        return result;
    }
    for (const std::u16string& target : options.arguments)
        checkTarget(target, options, names, progress, result);
    return result;
}

std::string formatted(const std::vector<ReportedFinding>& findings, const Summary& summary,
                      const Options& options, const PageSetup& setup, const PathNames& names) {
    if (options.values.has("--sarif"))
        return sarifReport(findings, names.base());
    switch (options.format) {
    case OutputFormat::Json: return jsonReport(findings, summary);
    case OutputFormat::JsonLines: return jsonLinesReport(findings);
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return textReport(findings, summary, setup.color);
}

Answer runCheck(const Options& options, const PageSetup& setup) {
    if (options.values.has("--rules"))
        return {.output = ruleList(setup.color)};
    if (const std::optional<std::string> rule = options.values.value("--explain"))
        return explain(*rule, setup);
    if (const std::string unknown = firstUnknown(options.values); !unknown.empty())
        return wrongUsage(unknownRule(unknown));

    const ReportSettings settings = settingsOf(options);
    PathNames names(std::filesystem::current_path());
    CheckResult result = checkAll(options, names);
    const std::vector<ReportedFinding> findings =
        makeReport(std::move(result.findings), names, settings);
    const Summary summary = summarize(findings, result.fileCount, result.consequenceCount);
    Answer answer{.status = !result.complaints.empty() ? ExitStatus::Failed
                            : summary.errors > 0       ? ExitStatus::Negative
                                                       : ExitStatus::Success,
                  .output = formatted(findings, summary, options, setup, names),
                  .complaints = std::move(result.complaints)};
    std::ranges::move(result.notes, std::back_inserter(answer.complaints));
    return answer;
}

std::vector<Choice> ruleChoices() {
    std::vector<Choice> choices;
    for (const Rule* rule : rules())
        choices.push_back({rule->name, rule->summary});
    return choices;
}

std::vector<OptionEntry> checkOptions() {
    return {
        {.name = "--sarif", .help = "Print a SARIF 2.1.0 document", .group = kFormatGroup},
        {"--baseline", "FILE", ValueType::Path,
         "Report only findings that are not in this earlier output of --json, --jsonl or "
         "--sarif"},
        {.name = "--werror",
         .placeholder = "RULE",
         .type = ValueType::Name,
         .help = "Treat the findings of the rule as errors; without a rule, all warnings",
         .choices = ruleChoices(),
         .isValueOptional = true},
        {"--ignore", "RULE", ValueType::Name,
         "Leave out the findings of the rule; may be given more than once", ruleChoices()},
        {.name = "--show-consequences", .help = "Also report findings that follow from others"},
        {.name = "--rules", .help = "Print the rules and exit"},
        {"--explain", "RULE", ValueType::Name, "Explain the rule and how to fix its findings",
         ruleChoices()},
    };
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
        .negative = "Errors were found.",
        .examples = {{"refdoc check --langs en,de,ja samples/help",
                      "Check a reference root in three languages."}},
        .rootUse = RootUse::WithoutArguments,
        .isRunWithOptions = false,
        .run = runCheck,
    };
}

} // namespace refdoc
