#include "tools/refdoc/cli/Options.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"

#include <string_view>
#include <utility>

namespace refdoc {

namespace {

using fl::i18n::to_ustring;

// The parts between commas, as they stand; none for the empty text.
std::vector<std::u16string> splitList(std::string_view text) {
    std::vector<std::u16string> parts;
    if (text.empty())
        return parts;
    std::size_t start = 0;
    for (std::size_t comma = text.find(','); comma != std::string_view::npos;
         comma = text.find(',', start)) {
        parts.push_back(to_ustring(text.substr(start, comma - start)));
        start = comma + 1;
    }
    parts.push_back(to_ustring(text.substr(start)));
    return parts;
}

std::optional<std::u16string> textOf(const ParsedWords& words, std::string_view option) {
    const std::optional<std::string> value = words.value(option);
    return value ? std::optional(to_ustring(*value)) : std::nullopt;
}

std::optional<std::vector<std::u16string>> listOf(const ParsedWords& words,
                                                  std::string_view option) {
    const std::optional<std::string> value = words.value(option);
    return value ? std::optional(splitList(*value)) : std::nullopt;
}

ColorChoice colorOf(const ParsedWords& words) {
    const std::string color = words.value("--color").value_or("auto");
    return color == "always"  ? ColorChoice::Always
           : color == "never" ? ColorChoice::Never
                              : ColorChoice::Auto;
}

OutputFormat formatOf(const ParsedWords& words) {
    return words.has("--json")    ? OutputFormat::Json
           : words.has("--jsonl") ? OutputFormat::JsonLines
                                  : OutputFormat::Text;
}

CheckOptions checkOptionsOf(const ParsedWords& words) {
    CheckOptions options;
    options.isSarif = words.has("--sarif");
    options.baseline = words.value("--baseline");
    for (const std::string& rule : words.values("--werror")) {
        if (rule.empty())
            options.isAllError = true;
        else
            options.errorRules.push_back(rule);
    }
    options.ignoredRules = words.values("--ignore");
    options.listsRules = words.has("--rules");
    options.explainedRule = words.value("--explain");
    return options;
}

Options optionsOf(const ParsedWords& words) {
    Options options;
    options.command = words.command == "show"      ? Command::Show
                      : words.command == "lookup"  ? Command::Lookup
                      : words.command == "explain" ? Command::Explain
                      : words.command == "check"   ? Command::Check
                                                   : Command::Products;
    for (const std::string& word : words.arguments)
        options.names.push_back(to_ustring(word));
    options.explainedName = textOf(words, "--name");
    const bool hasProduct = options.command == Command::Show || options.command == Command::Explain;
    if (hasProduct && !options.names.empty()) {
        options.product = std::move(options.names.front());
        options.names.erase(options.names.begin());
    }
    options.installFolder = textOf(words, "--install");
    options.referenceRoot = textOf(words, "--root");
    options.supportFolder = textOf(words, "--support-folder");
    options.language = textOf(words, "--lang");
    options.supportedLanguages = listOf(words, "--langs");
    options.installedProducts = listOf(words, "--installed");
    options.supportPackages = listOf(words, "--support-packages");
    options.format = formatOf(words);
    options.color = colorOf(words);
    options.mayPage = !words.has("--no-pager");
    options.verbose = words.has("--verbose");
    if (options.command == Command::Check)
        options.check = checkOptionsOf(words);
    return options;
}

} // namespace

std::variant<Options, Answer> readCommandLine(const std::vector<std::string>& arguments) {
    std::variant<ParsedWords, Answer> understood = parseCommandLine(commandTable(), arguments);
    if (const ParsedWords* words = std::get_if<ParsedWords>(&understood)) {
        // The one rule that the table has no place for.
        if (words->command == "explain" && words->arguments.empty() != words->has("--name"))
            return Answer{
                .status = ExitStatus::WrongUsage,
                .complaints = {"explain needs either a PRODUCT or --name; see refdoc --help"}};
        return optionsOf(*words);
    }
    return std::get<Answer>(std::move(understood));
}

} // namespace refdoc
