#include "tools/refdoc/check/CheckCommand.hpp"

#include "platform/i18n/Converter.hpp"
#include "platform/terminal/OutputDevice.hpp"
#include "tools/refdoc/check/Targets.hpp"
#include "tools/refdoc/check/fix/FixRun.hpp"
#include "tools/refdoc/check/report/ReportFormats.hpp"
#include "tools/refdoc/check/report/Selection.hpp"
#include "tools/refdoc/check/report/Statistics.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/cli/Number.hpp"
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

Limit limitOf(const OptionValues& values) {
    const std::optional<std::string> value = values.value("--max");
    return value ? numberFrom(*value) : std::nullopt;
}

// Returns what is wrong with the values of the options; empty if nothing is.
std::string usageProblem(const Options& options) {
    const OptionValues& values = options.values;
    if (const std::string unknown = firstUnknown(values); !unknown.empty())
        return unknownRule(unknown);
    if (values.has("--max") && !limitOf(values))
        return fmt::format("--max must be a number, not \"{}\"; see refdoc check --help",
                           *values.value("--max"));
    if (values.has("--write") && !values.has("--fix"))
        return "--write needs --fix; see refdoc check --help";
    for (const std::string_view format : {"--jsonl", "--sarif", "--fix"}) {
        if (values.has("--statistics") && values.has(format))
            return fmt::format("--statistics and {} cannot be combined; see refdoc check --help",
                               format);
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

std::string textOf(std::vector<ReportedFinding> findings, const Summary& summary, Limit limit,
                   const Options& options, const PageSetup& setup) {
    TextStyle style{.color = setup.color};
    if (platform::askStandardOutput().isTerminal)
        style.excerptWidth = setup.lineWidth;
    return options.values.has("--statistics")
               ? statisticsReport(countByProduct(findings), summary, limit, style)
               : textReport(std::move(findings), summary, limit, style);
}

// The summary and the statistics count all findings, whatever the limit.
std::string formatted(std::vector<ReportedFinding> findings, const Summary& summary,
                      bool isComplete, const Options& options, const PageSetup& setup,
                      const PathNames& names) {
    const Limit limit = limitOf(options.values);
    const std::size_t most = limit.value_or(0) == 0 ? findings.size() : *limit;
    if (options.values.has("--sarif"))
        return sarifReport(keepMostImportant(std::move(findings), most), summary.findings(),
                           isComplete, names.base());
    switch (options.format) {
    case OutputFormat::Json: {
        const std::vector<ProductCount> counts = countByProduct(findings);
        return jsonReport(keepMostImportant(std::move(findings), most), counts, summary);
    }
    case OutputFormat::JsonLines:
        return jsonLinesReport(keepMostImportant(std::move(findings), most));
    case OutputFormat::Plain: // not an option of this command
    case OutputFormat::Text: break;
    }
    return textOf(std::move(findings), summary, limit, options, setup);
}

CheckedFiles report(const Options& options, const ReportSettings& settings, PathNames& names) {
    CheckResult result = checkAll(options, names);
    CheckedFiles checked{
        .findings = makeReport(std::move(result.findings), result.products, names, settings),
        .complaints = std::move(result.complaints),
        .notes = std::move(result.notes)};
    checked.summary = summarize(checked.findings, result.fileCount, result.consequenceCount);
    return checked;
}

// An argument that names a file by its old name names it by its new one.
void followRename(const FileChange& change, std::vector<std::u16string>& arguments) {
    for (std::u16string& argument : arguments) {
        if (std::filesystem::absolute(argument).lexically_normal() == change.file)
            argument = change.newFile.u16string();
    }
}

Answer fix(Options options, const ReportSettings& settings, const PageSetup& setup) {
    PathNames names(std::filesystem::current_path());
    return fixFindings(
        {.check = [&] { return report(options, settings, names); },
         .onWritten = [&](const FileChange& change) { followRename(change, options.arguments); }},
        names, options.values.has("--write") ? FixMode::Write : FixMode::Show,
        {.color = setup.color, .isForTerminal = platform::askStandardOutput().isTerminal});
}

Answer runCheck(const Options& options, const PageSetup& setup) {
    if (options.values.has("--rules"))
        return {.output = ruleList(setup.color)};
    if (const std::optional<std::string> rule = options.values.value("--explain"))
        return explain(*rule, setup);
    if (std::string problem = usageProblem(options); !problem.empty())
        return wrongUsage(std::move(problem));

    const ReportSettings settings = settingsOf(options);
    if (options.values.has("--fix"))
        return fix(options, settings, setup);
    PathNames names(std::filesystem::current_path());
    CheckedFiles checked = report(options, settings, names);
    const bool isComplete = checked.complaints.empty();
    Answer answer{.status = !isComplete                  ? ExitStatus::Failed
                            : checked.summary.errors > 0 ? ExitStatus::Negative
                                                         : ExitStatus::Success,
                  .output = formatted(std::move(checked.findings), checked.summary, isComplete,
                                      options, setup, names),
                  .complaints = std::move(checked.complaints)};
    std::ranges::move(checked.notes, std::back_inserter(answer.complaints));
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
        {.name = "--fix",
         .help =
             "Print a diff that fixes what can only mean one thing: a misspelt key or word, the "
             "case of an extension or of a language suffix, a byte-order mark",
         .group = kFormatGroup},
        {.name = "--write", .help = "With --fix, change and rename the files"},
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
        {"--max", "N", ValueType::Name,
         "List at most N findings, errors first; 0 lists all, without groups. By default, only the "
         "text is limited: to 200 lines"},
        {.name = "--statistics",
         .help = "Print how many findings each rule has in each product, instead of the findings"},
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
        .negative = "Errors were found or, with --fix --write, remain.",
        .examples = {{"refdoc check --langs en,de,ja samples/help",
                      "Check a reference root in three languages."},
                     {"refdoc check --fix --write samples/help",
                      "Correct misspelt keys and the like."}},
        .rootUse = RootUse::WithoutArguments,
        .isRunWithOptions = false,
        .run = runCheck,
    };
}

} // namespace refdoc
