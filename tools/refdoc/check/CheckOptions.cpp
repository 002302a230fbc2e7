#include "tools/refdoc/check/CheckOptions.hpp"

#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/cli/Options.hpp"

namespace refdoc::check {

namespace {

std::vector<Choice> ruleChoices() {
    std::vector<Choice> choices;
    for (const Rule* rule : rules())
        choices.push_back({rule->name, rule->summary});
    return choices;
}

} // namespace

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
        {.name = "--rules", .help = "Print the rules and exit"},
        {"--explain", "RULE", ValueType::Name, "Explain the rule and how to fix its findings",
         ruleChoices()},
    };
}

CheckOptions readCheckOptions(const OptionValues& values) {
    CheckOptions options;
    options.baseline = values.value("--baseline");
    for (const std::string& rule : values.values("--werror")) {
        if (rule.empty())
            options.isAllError = true;
        else
            options.errorRules.push_back(rule);
    }
    options.ignoredRules = values.values("--ignore");
    return options;
}

} // namespace refdoc::check
