#include "tools/refdoc/Commands.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/check/CheckCommand.hpp"
#include "tools/refdoc/cli/CommandLine.hpp"
#include "tools/refdoc/cli/Help.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/diff/DiffCommand.hpp"
#include "tools/refdoc/explain/ExplainCommand.hpp"
#include "tools/refdoc/lookup/LookupCommand.hpp"
#include "tools/refdoc/products/ProductsCommand.hpp"
#include "tools/refdoc/search/SearchCommand.hpp"
#include "tools/refdoc/serve/ServeCommand.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"
#include "tools/refdoc/site/SiteCommand.hpp"
#include "tools/refdoc/translations/TranslationsCommand.hpp"

namespace refdoc {

namespace {

Answer runHelp(const Options& options, const PageSetup&) {
    if (options.arguments.empty())
        return {.output = helpText(commandTable(), nullptr)};
    const std::string name = fl::i18n::to_string(options.arguments.front());
    if (const CommandEntry* command = findCommand(commandTable(), name))
        return {.output = helpText(commandTable(), command)};
    return wrongUsage(commandTable(), unknownCommand(commandTable(), name));
}

CommandEntry helpCommand() {
    return {.name = "help",
            .help = "Print the help of a command, or of refdoc",
            .arguments = {{.name = "COMMAND",
                           .type = ValueType::Command,
                           .help = "Print the help of this command"}},
            .examples = {{"refdoc help search", "Print the help of the command search."}},
            .rootUse = RootUse::Never,
            .run = runHelp};
}

std::vector<CommandEntry> commands() {
    return {showCommand(),         lookupCommand(), productsCommand(), explainCommand(),
            checkCommand(),        searchCommand(), siteCommand(),     serveCommand(),
            translationsCommand(), diffCommand(),   gitDiffCommand(),  helpCommand()};
}

std::vector<Remark> exitStatuses() {
    return {
        {"0", "Success."},
        {"1",
         "Something that was asked for does not exist: the product, a link or a name; "
         "\"search\" found nothing; \"check\" found errors; less is translated than \"translations "
         "--fail-under\" asks for; or \"diff --exit-code\" found changes."},
        {"2", "Wrong usage."},
        {"3", "Any other failure."}};
}

std::vector<Remark> environment() {
    return {
        {"REFDOC_INSTALL", "The install folder, unless --install names one. A relative folder is "
                           "relative to the current one. If this variable or one of the next "
                           "two is empty, it is ignored."},
        {"REFDOC_ROOT", "The reference root, unless --root or --install names one. If no "
                        "option or variable names a folder, the current folder is the "
                        "reference root if it contains the folder docCatalog, and the install "
                        "folder if it contains installation.json."},
        {"REFDOC_LANG", "The documentation language, unless --lang names one."},
        {"PAGER", "The shell command that shows output longer than the terminal; if it is empty "
                  "or \"cat\", there is no pager. By default less, if it is installed."},
        {"LESS", "The options of less. If it is not set, the pager gets \"FRX\"."},
        {"NO_COLOR", "If it is not empty, there is no colour unless --color asks for it."},
        {"TERM", "If it is \"dumb\", there is no colour unless --color asks for it. If it is "
                 "\"dumb\" or not set, there is no pager unless PAGER names one."},
        {"COLUMNS", "The width of the output, instead of the terminal's."}};
}

CommandTable makeTable() {
    return {
        .program = "refdoc",
        .summary = "print the reference documentation that the installed products provide",
        .description =
            {"refdoc reads the resource files of an install folder and prints what they "
             "document: the full records of one product, or the index of all names.",
             "Results go to standard output, everything else to standard error. Options may "
             "precede or follow the command. If an option is given twice, the last value wins. "
             "\"--\" ends the options.",
             "A file is a translation if its name ends with \"_\" and a supported language. With "
             "--langs auto, the supported languages are English and those that a pair of files "
             "shows: \"zh_CN\" if there are files of Orchard and of Orchard_zh_CN."},
        .options = globalOptions(),
        .commands = commands(),
        .exitStatuses = exitStatuses(),
        .environment = environment(),
        .files = {{"installation.json",
                   "In the install folder: the documentation language, the supported languages "
                   "and what is installed. Without it, English is the only language and nothing "
                   "is installed."}},
        .seeAlso = {"less(1)", "jq(1)"}};
}

} // namespace

const CommandTable& commandTable() {
    static const CommandTable table = makeTable();
    return table;
}

} // namespace refdoc
