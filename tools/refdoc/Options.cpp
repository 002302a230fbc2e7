#include "tools/refdoc/Options.hpp"

#include "platform/i18n/Converter.hpp"

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <sstream>
#include <string_view>
#include <utility>

namespace refdoc {

namespace {

using fl::i18n::to_ustring;

// CLI11 gives some plain words a meaning of their own: "[a,b]" is two words, "{}" none, "++" ends a
// command, an empty text may be dropped. All of these can be names, and so a word that it could
// take for something else travels with this mark before it.
constexpr char kWordMark = '\x1f';

std::string marked(std::string_view word) {
    return kWordMark + std::string(word);
}

std::string unmarked(std::string word) {
    if (!word.empty() && word.front() == kWordMark)
        word.erase(0, 1);
    return word;
}

bool needsMark(std::string_view word) {
    return word.empty() || std::string_view("[{%+\x1f").find(word.front()) != word.npos;
}

// "--lang=" gives the empty text, which CLI11 would take for a value that is still to come.
bool isOptionWithEmptyValue(std::string_view word) {
    return word.starts_with("--") && word.find('=') == word.size() - 1;
}

// The words for CLI11. After "--" every word is a name, whatever it looks like.
std::vector<std::string> markedWords(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    words.reserve(arguments.size());
    bool onlyNames = false;
    for (const std::string& argument : arguments) {
        if (onlyNames || needsMark(argument))
            words.push_back(marked(argument));
        else if (argument == "--")
            onlyNames = true;
        else if (isOptionWithEmptyValue(argument))
            words.push_back(argument + kWordMark);
        else
            words.push_back(argument);
    }
    return words;
}

// The parts between commas, as they stand; none for the empty text.
std::vector<std::u16string> splitList(const std::string& text) {
    std::vector<std::u16string> parts;
    if (text.empty())
        return parts;
    std::size_t start = 0;
    for (std::size_t comma = text.find(','); comma != text.npos; comma = text.find(',', start)) {
        parts.push_back(to_ustring(std::string_view(text).substr(start, comma - start)));
        start = comma + 1;
    }
    parts.push_back(to_ustring(std::string_view(text).substr(start)));
    return parts;
}

constexpr const char* kFooter =
    R"(Global options may stand before or after the command; "--" ends the options.
Exit status: 0 found; 1 nothing found for what was asked; 2 wrong usage; 3 any
other failure.

Examples:
  refdoc --install samples products
  refdoc --install samples lookup smooth
  refdoc --install samples --lang ja show Orchard ref/smooth.html)";

// The command line as CLI11 sees it, bound to texts of this object.
class CommandLine {
public:
    CommandLine() {
        app_.require_subcommand(1);
        app_.fallthrough();
        app_.set_help_flag("-h,--help", "Print this help and exit");
        app_.set_version_flag("--version", "refdoc " REFDOC_VERSION, "Print the version and exit");
        app_.footer(kFooter);
        addGlobalOptions();
        addCommands();
    }

    std::variant<Options, Answer> read(std::vector<std::string> words) {
        std::ranges::reverse(words); // the order that CLI11 asks for
        try {
            app_.parse(std::move(words));
        } catch (const CLI::Success& request) {
            std::ostringstream text;
            app_.exit(request, text, text);
            return Answer{.output = text.str()};
        } catch (const CLI::RequiredError&) {
            return wrongUsage(whatIsNeeded());
        } catch (const CLI::ParseError& error) {
            return wrongUsage(error.what());
        }
        return options();
    }

private:
    void addText(const char* name, std::string& text, const char* placeholder, const char* help) {
        // The last one wins, so that an alias can be overruled.
        app_.add_option(name, text, help)->type_name(placeholder)->take_last();
    }

    void addGlobalOptions() {
        addText("--install", install_, "DIR",
                "The install folder, with its installation.json; the\n"
                "reference root is its folder \"help\"");
        addText("--root", root_, "DIR", "The reference root");
        addText("--support-folder", supportFolder_, "DIR",
                "The folder of the support packages' resource files");
        addText("--lang", language_, "L", "The documentation language, as in \"ja\"");
        addText("--langs", languages_, "L,L,...", "The supported documentation languages");
        addText("--installed", installed_, "N,N,...",
                "The products that count as installed, and no others");
        addText("--support-packages", supportPackages_, "N,N,...",
                "The support packages that count as installed, and no\nothers");
        app_.add_flag("--json", json_, "Print one JSON document");
        app_.add_option("--color", color_, "When to use colour: auto, always or never")
            ->type_name("WHEN")
            ->check(CLI::IsMember({"auto", "always", "never"}))
            ->take_last();
        app_.add_flag("--verbose", verbose_, "Say on standard error which files are read");
    }

    void addCommands() {
        show_ = app_.add_subcommand("show", "Print the full records of one product");
        show_->add_option("PRODUCT", product_, "Name of the product's resource file, without .json")
            ->type_name("")
            ->required();
        show_->add_option("HREF", names_, "Only the items with these links")->type_name("");
        lookup_ = app_.add_subcommand("lookup", "Print the lookup index of all products");
        lookup_->add_option("NAME", names_, "Only the entries with these names")->type_name("");
        app_.add_subcommand("products", "Print what was found: product files, installed products,\n"
                                        "support packages, languages and folders");
    }

    std::string whatIsNeeded() const {
        if (show_->parsed())
            return "show needs a PRODUCT";
        const std::vector<std::string> rest = app_.remaining();
        if (!rest.empty())
            return "there is no command or option " + rest.front();
        return "a command is needed: show, lookup or products";
    }

    static Answer wrongUsage(std::string message) {
        std::erase(message, kWordMark);
        if (message.starts_with("The "))
            message[0] = 't';
        return {.status = ExitStatus::WrongUsage, .complaints = {message + "; see refdoc --help"}};
    }

    std::optional<std::string> given(const char* name, const std::string& text) const {
        if (app_.count(name) == 0)
            return std::nullopt;
        return unmarked(text);
    }

    std::optional<std::u16string> givenText(const char* name, const std::string& text) const {
        const std::optional<std::string> value = given(name, text);
        return value ? std::optional(to_ustring(*value)) : std::nullopt;
    }

    std::optional<std::vector<std::u16string>> givenList(const char* name,
                                                         const std::string& text) const {
        const std::optional<std::string> value = given(name, text);
        return value ? std::optional(splitList(*value)) : std::nullopt;
    }

    Options options() const {
        Options options;
        options.command = show_->parsed()     ? Command::Show
                          : lookup_->parsed() ? Command::Lookup
                                              : Command::Products;
        options.product = to_ustring(unmarked(product_));
        for (const std::string& name : names_)
            options.names.push_back(to_ustring(unmarked(name)));
        options.installFolder = givenText("--install", install_);
        options.referenceRoot = givenText("--root", root_);
        options.supportFolder = givenText("--support-folder", supportFolder_);
        options.language = givenText("--lang", language_);
        options.supportedLanguages = givenList("--langs", languages_);
        options.installedProducts = givenList("--installed", installed_);
        options.supportPackages = givenList("--support-packages", supportPackages_);
        options.json = json_;
        options.color = color_ == "always"  ? ColorChoice::Always
                        : color_ == "never" ? ColorChoice::Never
                                            : ColorChoice::Auto;
        options.verbose = verbose_;
        return options;
    }

    CLI::App app_{"Print the reference documentation that the installed products provide.",
                  "refdoc"};
    CLI::App* show_ = nullptr;
    CLI::App* lookup_ = nullptr;
    std::string install_, root_, supportFolder_;
    std::string language_, languages_;
    std::string installed_, supportPackages_;
    std::string color_ = "auto";
    bool json_ = false;
    bool verbose_ = false;
    std::string product_;
    std::vector<std::string> names_;
};

} // namespace

std::variant<Options, Answer> readCommandLine(const std::vector<std::string>& arguments) {
    return CommandLine().read(markedWords(arguments));
}

} // namespace refdoc
