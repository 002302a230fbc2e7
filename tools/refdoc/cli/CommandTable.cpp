#include "tools/refdoc/cli/CommandTable.hpp"

#include <algorithm>
#include <iterator>

namespace refdoc {

namespace {

std::vector<OptionEntry> folderOptions() {
    return {{"--install", "DIR", ValueKind::Folder,
             "The install folder, with its installation.json; the reference root is its folder "
             "\"help\""},
            {"--root", "DIR", ValueKind::Folder, "The reference root"},
            {"--support-folder", "DIR", ValueKind::Folder,
             "The folder of the support packages' resource files"}};
}

std::vector<OptionEntry> contentOptions() {
    return {{"--lang", "L", ValueKind::Language,
             "The documentation language, as in \"ja\"; without it, the language that "
             "installation.json names"},
            {"--langs", "L,L,...", ValueKind::Languages, "The supported documentation languages"},
            {"--installed", "N,N,...", ValueKind::Sections,
             "The products that count as installed, and no others"},
            {"--support-packages", "N,N,...", ValueKind::Sections,
             "The support packages that count as installed, and no others"}};
}

std::vector<OptionEntry> outputOptions() {
    return {{"--json", "", ValueKind::None, "Print one JSON document"},
            {.name = "--jsonl",
             .placeholder = "",
             .kind = ValueKind::None,
             .help = "Print one JSON object a line: each record, or the files of products, or the "
                     "findings of check",
             .excludes = "--json"},
            {"--color",
             "WHEN",
             ValueKind::Choice,
             "When to use colour: auto, always or never",
             {"auto", "always", "never"}},
            {"--no-pager", "", ValueKind::None, "Never show long output a page at a time"},
            {"--verbose", "", ValueKind::None, "Say on standard error which files are read"},
            {.name = "--help",
             .placeholder = "",
             .kind = ValueKind::None,
             .help = "Print this help and exit",
             .shortName = "-h"},
            {"--version", "", ValueKind::None, "Print the version and exit"}};
}

std::vector<OptionEntry> globalOptions() {
    std::vector<OptionEntry> options = folderOptions();
    for (const std::vector<OptionEntry>& more : {contentOptions(), outputOptions()})
        options.insert(options.end(), more.begin(), more.end());
    return options;
}

std::vector<OptionEntry> checkOptions() {
    return {{.name = "--sarif",
             .placeholder = "",
             .kind = ValueKind::None,
             .help = "Print a SARIF 2.1.0 document",
             .excludes = "--json"},
            {"--baseline", "FILE", ValueKind::File,
             "Report only what is not in this former output of --json, --jsonl or "
             "--sarif"},
            {.name = "--werror",
             .placeholder = "RULE",
             .kind = ValueKind::Rule,
             .help = "Count the rule's findings as errors; without =RULE, all warnings",
             .isList = true,
             .isValueOptional = true},
            {.name = "--ignore",
             .placeholder = "RULE",
             .kind = ValueKind::Rule,
             .help = "Leave the rule's findings out; may be given more than once",
             .isList = true},
            {"--rules", "", ValueKind::None, "Print the rules and exit"},
            {"--explain", "RULE", ValueKind::Rule, "Print what there is to say about a rule"}};
}

CommandEntry checkCommand() {
    return {"check",
            "Find what is silently dropped, changed or ignored",
            "Checks resource files as a compiler does, one line a finding. A PATH is a reference "
            "root, an install folder, a resource file, a package or an installation.json; without "
            "one, the current roots are checked, in all supported languages. The status is 1 when "
            "errors were found.",
            {{"PATH", ValueKind::Path, false, true,
              "Only these: a reference root, an install folder, a file or a package"}},
            checkOptions()};
}

std::vector<CommandEntry> commands() {
    return {{"show",
             "Print the full records of one product",
             "Prints everything that the product documents, or only the items with the given "
             "links. What the translation lacks is printed in English and marked.",
             {{"PRODUCT", ValueKind::Product, true, false,
               "Name of the product's resource file, without .json"},
              {"HREF", ValueKind::Href, false, true, "Only the items with these links"}}},
            {"lookup",
             "Print the lookup index of all products",
             "Prints one line a record, the installed products first; or only the records with "
             "the given names, with their links.",
             {{"NAME", ValueKind::LookupName, false, true, "Only the entries with these names"}}},
            {"products",
             "Print what was found: product files, installed products, support packages, "
             "languages and folders",
             "Prints what the other commands would read, and where from."},
            {"explain",
             "Print which file each record comes from, and what became of the others",
             "Prints for each section and record of a product, or of a name of the lookup index, "
             "the file or package entry and the line that it comes from, the records that it took "
             "the place of and by which rule, and what became of each file that was considered.",
             {{"PRODUCT", ValueKind::Product, false, false,
               "Name of the product's resource file, without .json"},
              {"HREF", ValueKind::Href, false, false, "Only the item with this link"}},
             {{"--name", "NAME", ValueKind::LookupName,
               "Explain a name of the lookup index instead of a product"}}},
            checkCommand()};
}

std::vector<Remark> environment() {
    return {{"PAGER", "The command that shows output longer than the terminal, run by the shell; "
                      "empty or \"cat\": none. Without it less is used where it is installed."},
            {"LESS", "The options of less. The pager gets \"FRX\" when it is not set."},
            {"NO_COLOR", "With any value but the empty one, no colour unless --color asks for it."},
            {"TERM",
             "When it is \"dumb\", there is no colour unless --color asks for it; then, or when "
             "it is not set, no pager unless PAGER names one."},
            {"COLUMNS", "The width of the output, in place of the terminal's."}};
}

std::vector<Remark> examples() {
    return {{"refdoc --install samples products", "What is there in the folder samples."},
            {"refdoc --install samples lookup smooth",
             "Where the name smooth is documented, and as what."},
            {"refdoc --install samples --lang ja show Orchard ref/smooth.html",
             "One item of the product Orchard, in Japanese."},
            {"refdoc --install samples --jsonl lookup",
             "The whole index for programs, one record a line."}};
}

CommandTable makeTable() {
    return {.program = "refdoc",
            .summary = "print the reference documentation that the installed products provide",
            .description =
                {"refdoc reads the resource files of an install folder and prints what they "
                 "document: the full records of one product, or the index of all names.",
                 "Results go to standard output, everything else to standard error. Options may "
                 "stand before or after the command; of two equal options the last one wins; "
                 "\"--\" ends the options."},
            .options = globalOptions(),
            .commands = commands(),
            .exitStatuses = {{"0", "Found."},
                             {"1", "Nothing found for what was asked: the product, one of the "
                                   "links or one of the names; or \"check\" found errors."},
                             {"2", "Wrong usage."},
                             {"3", "Any other failure."}},
            .environment = environment(),
            .files = {{"installation.json",
                       "In the install folder: the documentation language, the supported languages "
                       "and what is installed. Without it there is English alone and nothing is "
                       "installed."}},
            .examples = examples(),
            .seeAlso = {"less(1)", "jq(1)"}};
}

} // namespace

const CommandTable& commandTable() {
    static const CommandTable table = makeTable();
    return table;
}

const CommandEntry* findCommand(const CommandTable& table, std::string_view name) {
    const auto found = std::ranges::find(table.commands, name, &CommandEntry::name);
    return found == table.commands.end() ? nullptr : &*found;
}

const OptionEntry* findOption(const CommandTable& table, const CommandEntry* command,
                              std::string_view name) {
    const auto find = [&](const std::vector<OptionEntry>& options) -> const OptionEntry* {
        const auto found = std::ranges::find_if(options, [&](const OptionEntry& option) {
            return option.name == name || (!name.empty() && option.shortName == name);
        });
        return found == options.end() ? nullptr : &*found;
    };
    if (const OptionEntry* option = find(table.options))
        return option;
    return command ? find(command->options) : nullptr;
}

std::string sentenceOf(std::string_view text) {
    std::string sentence(text);
    if (!sentence.empty() && sentence.front() >= 'a' && sentence.front() <= 'z')
        sentence.front() = static_cast<char>(sentence.front() - 'a' + 'A');
    if (!sentence.ends_with('.'))
        sentence += '.';
    return sentence;
}

std::string synopsisOf(const CommandEntry& command) {
    std::string synopsis(command.name);
    for (const ArgumentEntry& argument : command.arguments) {
        std::string word = std::string(argument.name) + (argument.isList ? "..." : "");
        synopsis += argument.isRequired ? " " + word : " [" + word + "]";
    }
    return synopsis;
}

} // namespace refdoc
