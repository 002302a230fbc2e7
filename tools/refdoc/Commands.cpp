#include "tools/refdoc/Commands.hpp"

#include "tools/refdoc/check/CheckCommand.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/explain/ExplainCommand.hpp"
#include "tools/refdoc/lookup/LookupCommand.hpp"
#include "tools/refdoc/products/ProductsCommand.hpp"
#include "tools/refdoc/show/ShowCommand.hpp"

namespace refdoc {

namespace {

std::vector<CommandEntry> commands() {
    return {
        showCommand(), lookupCommand(), productsCommand(), explainCommand(), checkCommand(),
    };
}

std::vector<Remark> exitStatuses() {
    return {{"0", "Success."},
            {"1", "Something that was asked for does not exist: the product, a link or a name; or "
                  "\"check\" found errors."},
            {"2", "Wrong usage."},
            {"3", "Any other failure."}};
}

std::vector<Remark> environment() {
    return {{"PAGER",
             "The shell command that shows output longer than the terminal; if it is empty "
             "or \"cat\", there is no pager. By default less, if it is installed."},
            {"LESS", "The options of less. If it is not set, the pager gets \"FRX\"."},
            {"NO_COLOR", "If it is not empty, there is no colour unless --color asks for it."},
            {"TERM", "If it is \"dumb\", there is no colour unless --color asks for it. If it is "
                     "\"dumb\" or not set, there is no pager unless PAGER names one."},
            {"COLUMNS", "The width of the output, instead of the terminal's."}};
}

std::vector<Remark> examples() {
    return {{"refdoc --install samples products", "List what the folder samples contains."},
            {"refdoc --install samples lookup smooth", "List where the name smooth is documented."},
            {"refdoc --install samples --lang ja show Orchard ref/smooth.html",
             "Print one item of the product Orchard in Japanese."},
            {"refdoc --install samples --jsonl lookup",
             "Print the whole index for programs, one record per line."}};
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
             "\"--\" ends the options."},
        .options = globalOptions(),
        .commands = commands(),
        .exitStatuses = exitStatuses(),
        .environment = environment(),
        .files = {{"installation.json",
                   "In the install folder: the documentation language, the supported languages "
                   "and what is installed. Without it, English is the only language and nothing "
                   "is installed."}},
        .examples = examples(),
        .seeAlso = {"less(1)", "jq(1)"}};
}

} // namespace

const CommandTable& commandTable() {
    static const CommandTable table = makeTable();
    return table;
}

} // namespace refdoc
