#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

constexpr std::size_t kCompared = 40; // characters of the first line of the output
constexpr auto kNoCommand =
    "a command is needed: show, lookup, products, explain, check, search, site, serve, "
    "translations, diff, git-diff or help";
constexpr auto kVersionLine = "refdoc " REFDOC_VERSION;

// A command line, its exit status, the start of its output, and its complaint, if there is one,
// without the hint that ends complaints about wrong usage.
struct Row {
    std::vector<std::string> words;
    int status;
    std::string output;
    std::string complaint;
};

// The complaint about a name while the index is empty.
std::string noEntry(const std::string& name) {
    return "no entry \"" + name +
           "\" in the lookup index; --install or --root names another folder";
}

class CommandLineTableTest : public RefdocTest {
protected:
    CommandLineTableTest() {
        addResource("Orchard", section("orchard", R"({"href": "a.html", "refpurpose": "Join"})"));
    }

    // Runs each command line after "--install" and the folder of this test, in that folder.
    void expectOutcomes(const std::vector<Row>& rows,
                        const std::string& hint = "refdoc --help") const {
        for (const auto& [words, status, output, complaint] : rows) {
            const std::string end = status == 2 ? "; see " + hint + '\n' : "\n";
            const std::string errors = complaint.empty() ? "" : "refdoc: " + complaint + end;
            const Outcome outcome = run(words, {.folder = path()});
            const std::string line = outcome.out.substr(0, outcome.out.find('\n'));
            EXPECT_EQ((Outcome{outcome.status, line.substr(0, kCompared), outcome.err}),
                      (Outcome{status, output, errors}))
                << testing::PrintToString(words);
        }
    }
};

TEST_F(CommandLineTableTest, OneCommandWithItsArguments) {
    expectOutcomes({
        {{}, 2, "", kNoCommand},
        {{"products"}, 0, "Folders", ""},
        {{"show"}, 2, "", "show needs a PRODUCT"},
        {{"show", "Orchard"}, 0, "orchard name", ""},
        {{"show", "Orchard", "a.html"}, 0, "orchard name", ""},
        {{"show", "Orchard", "a.html", "b.html"},
         1,
         "orchard name",
         "no item \"b.html\" in \"Orchard\"; did you mean \"a.html\"?"},
        {{"explain"}, 2, "", "explain needs either a PRODUCT or --name"},
        {{"explain", "Orchard"}, 0, "Orchard", ""},
        {{"explain", "Orchard", "a.html"}, 0, "Orchard, a.html", ""},
        {{"explain", "Orchard", "a.html", "c"}, 2, "", "unexpected argument \"c\""},
        {{"explain", "--name", "x"}, 1, "x", noEntry("x")},
        {{"explain", "Orchard", "--name", "x"}, 2, "", "explain needs either a PRODUCT or --name"},
        {{"check"}, 0, "1 file checked, no problems found", ""},
        {{"check", "--rules"}, 0, "malformed-json                   error  ", ""},
        {{"products", "Orchard"}, 2, "", "unexpected argument \"Orchard\""},
        {{"products", ""}, 2, "", "unexpected argument \"\""},
        {{"list"}, 2, "", "unknown command \"list\""},
        {{"shwo", "Orchard"}, 2, "", "unknown command \"shwo\"; did you mean \"show\"?"},
        {{"Show", "Orchard"}, 2, "", "unknown command \"Show\"; did you mean \"show\"?"},
        {{"sho", "Orchard"}, 2, "", "unknown command \"sho\"; did you mean \"show\"?"},
        {{""}, 2, "", "unknown command \"\""},
        {{"-"}, 2, "", "unknown command \"-\""},
        {{"products", "lookup"}, 2, "", "unexpected argument \"lookup\""},
        {{"lookup", "lookup"}, 1, "", noEntry("lookup")},
        {{"list", "lookup"}, 2, "", "unknown command \"list\""},
        {{"--", "lookup", "x"}, 2, "", "the command lookup must precede \"--\""},
    });
}

TEST_F(CommandLineTableTest, OptionsWithValues) {
    expectOutcomes({
        {{"--lang", "ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "", "lookup", "x"}, 1, "", noEntry("x")},
        {{"lookup", "--lang"}, 2, "", "--lang needs a value"},
        {{"lookup", "x", "--lang", "ja"}, 1, "", noEntry("x")},
        {{"--lang", "--json", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "-x", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "lookup"}, 2, "", kNoCommand},
        {{"--lang", "lookup", "lookup", "x"}, 1, "", noEntry("x")},
        {{"lookup", "--lang", "--"}, 2, "", "--lang needs a value"},
        {{"--lang=a=b", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=--json", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "[a,b]", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=[a,b]", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang={}", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "de", "--lang", "ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--install", "nowhere", "--install", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--root", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--root"}, 2, "", "--root needs a value"},
        {{"--support-folder", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--support-folder"}, 2, "", "--support-folder needs a value"},
        {{"--langs", "en,ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--langs=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--langs"}, 2, "", "--langs needs a value"},
        {{"--installed", "a,b", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--installed=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--installed"}, 2, "", "--installed needs a value"},
        {{"--support-packages", "a", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--support-packages"}, 2, "", "--support-packages needs a value"},
        {{"lookup", "--install"}, 2, "", "--install needs a value"},
        {{"--color", "always", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color=never", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color", "auto", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color", "pink", "lookup"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
        {{"--color=", "lookup"}, 2, "", "--color must be auto, always or never, not \"\""},
        {{"--color", "", "lookup"}, 2, "", "--color must be auto, always or never, not \"\""},
        {{"--color"}, 2, "", "--color needs a value"},
        {{"--color", "Always", "lookup"},
         2,
         "",
         "--color must be auto, always or never, not \"Always\""},
        {{"--color", "pink", "--color", "auto", "lookup", "x"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
        {{"--color", "auto", "--color", "pink", "lookup", "x"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
    });
}

TEST_F(CommandLineTableTest, OptionsWithoutValues) {
    expectOutcomes({
        {{"--json", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--jsonl", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--verbose", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--no-pager", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--json", "--json", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--json=true", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--json=false", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--json=", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--json=1", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--json=pink", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--verbose=false", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--no-pager=x", "lookup", "x"}, 1, "", noEntry("x")},
        {{"check", "--rules=x"}, 0, "malformed-json                   error  ", ""},
        {{"check", "--rules=false"}, 0, "malformed-json                   error  ", ""},
        {{"--json"}, 2, "", kNoCommand},
        {{"--json", "true", "lookup"}, 2, "", "unknown command \"true\""},
        {{"lookup", "--json", "true"}, 1, "{", noEntry("true")},
        {{"--json", "--jsonl", "lookup"}, 2, "", "--json and --jsonl cannot be combined"},
        {{"--jsonl", "--json", "lookup"}, 2, "", "--json and --jsonl cannot be combined"},
        {{"lookup", "--jsonl", "--json"}, 2, "", "--json and --jsonl cannot be combined"},
        {{"check", "--json", "--sarif"}, 2, "", "--json and --sarif cannot be combined"},
        {{"check", "--sarif", "--json"}, 2, "", "--json and --sarif cannot be combined"},
        {{"--json", "check", "--sarif"}, 2, "", "--json and --sarif cannot be combined"},
        {{"check", "--jsonl", "--sarif"}, 2, "", "--jsonl and --sarif cannot be combined"},
        {{"check", "--sarif", "--jsonl"}, 2, "", "--jsonl and --sarif cannot be combined"},
        {{"check", "--json=false", "--sarif"}, 2, "", "--json and --sarif cannot be combined"},
        {{"check", "--json"}, 0, "{", ""},
        {{"check", "--jsonl"}, 0, "", ""},
        {{"check", "--sarif"}, 0, "{\"$schema\":\"https://json.schemastore.org", ""},
    });
}

TEST_F(CommandLineTableTest, UnknownOptionsAndNamesThatBeginWithADash) {
    expectOutcomes({
        {{"--bad"}, 2, "", "unknown option --bad"},
        {{"--bad", "lookup", "x"}, 2, "", "unknown option --bad"},
        {{"lookup", "--bad"}, 2, "", "unknown option --bad"},
        {{"lookup", "x", "--bad", "y"}, 2, "", "unknown option --bad"},
        {{"--bad=1", "lookup"}, 2, "", "unknown option --bad"},
        {{"--lnag", "ja", "lookup"}, 2, "", "unknown option --lnag; did you mean --lang?"},
        {{"--verb", "lookup"}, 2, "", "unknown option --verb"},
        {{"--JSON", "lookup"}, 2, "", "unknown option --JSON; did you mean --json?"},
        {{"--lan=ja", "lookup", "x"}, 2, "", "unknown option --lan; did you mean --lang?"},
        {{"-x"}, 2, "", "unknown option -x"},
        {{"lookup", "-x"}, 2, "", "unknown option -x"},
        {{"lookup", "-xh"}, 2, "", "unknown option -xh"},
        {{"-j", "lookup"}, 2, "", "unknown option -j"},
        {{"lookup", "-json"}, 2, "", "unknown option -json; did you mean --json?"},
        {{"lookup", "-lang", "ja"}, 2, "", "unknown option -lang; did you mean --lang?"},
        {{"lookup", "-5"}, 1, "", noEntry("-5")},
        {{"lookup", "-5x"}, 1, "", noEntry("-5x")},
        {{"lookup", "---x"}, 1, "", noEntry("---x")},
        {{"lookup", "--!"}, 1, "", noEntry("--!")},
        {{"lookup", "-!"}, 1, "", noEntry("-!")},
        {{"lookup", "- x"}, 1, "", noEntry("- x")},
        {{"lookup", "-- x"}, 1, "", noEntry("-- x")},
        {{"lookup", "--=x"}, 2, "", "unknown option --=x"},
        {{"lookup", "-=x"}, 2, "", "unknown option -=x"},
        {{"lookup", "-"}, 1, "", noEntry("-")},
        {{"lookup", "-ä"}, 2, "", "unknown option -ä"},
        {{"lookup", "--ä"}, 2, "", "unknown option --ä"},
        {{"lookup", "--1"}, 2, "", "unknown option --1"},
        {{"lookup", "-{"}, 2, "", "unknown option -{"},
        {{"lookup", "-,"}, 2, "", "unknown option -,"},
        {{"-5"}, 2, "", "unknown command \"-5\""},
        {{"---x"}, 2, "", "unknown command \"---x\""},
        {{"products", "-5"}, 2, "", "unexpected argument \"-5\""},
        {{"products", "---x"}, 2, "", "unexpected argument \"---x\""},
    });
}

TEST_F(CommandLineTableTest, NamesWithSpecialCharactersAndAfterDashes) {
    expectOutcomes({
        {{"lookup", "[a,b]"}, 1, "", noEntry("[a,b]")},
        {{"lookup", "[]"}, 1, "", noEntry("[]")},
        {{"lookup", "{}"}, 1, "", noEntry("{}")},
        {{"lookup", "{a}"}, 1, "", noEntry("{a}")},
        {{"lookup", "%%"}, 1, "", noEntry("%%")},
        {{"lookup", "%a"}, 1, "", noEntry("%a")},
        {{"lookup", "++"}, 1, "", noEntry("++")},
        {{"lookup", "+a"}, 1, "", noEntry("+a")},
        {{"lookup", "\x1f"}, 1, "", noEntry("␟")},
        {{"lookup", "\x1f"
                    "a"},
         1,
         "",
         noEntry("␟a")},
        {{"lookup", "/path"}, 1, "", noEntry("/path")},
        {{"lookup", "/json"}, 1, "", noEntry("/json")},
        {{"lookup", ""}, 1, "", noEntry("")},
        {{"lookup", "a=b"}, 1, "", noEntry("a=b")},
        {{"lookup", "a,b"}, 1, "", noEntry("a,b")},
        {{"lookup", "a", "a"}, 1, "", noEntry("a")},
        {{"lookup", "'a'"}, 1, "", noEntry("'a'")},
        {{"lookup", "`a`"}, 1, "", noEntry("`a`")},
        {{"lookup", "#a"}, 1, "", noEntry("#a")},
        {{"lookup", "a b"}, 1, "", noEntry("a b")},
        {{"lookup", "--", "--json"}, 1, "", noEntry("--json")},
        {{"lookup", "--", "--help"}, 1, "", noEntry("--help")},
        {{"products", "--", "--json"}, 2, "", "unexpected argument \"--json\""},
        {{"products", "--"}, 0, "Folders", ""},
        {{"--", "products"}, 2, "", "the command products must precede \"--\""},
        {{"--", "--json", "lookup"}, 2, "", "unknown command \"--json\""},
        {{"explain", "Orchard", "--", "--help"},
         1,
         "Orchard, --help",
         "no item \"--help\" in \"Orchard\"; see refdoc show \"Orchard\""},
        {{"show", "Orchard", "--lang", "--", "x"}, 0, "orchard name", ""},
        {{"show", "Orchard", "--lang", "--"}, 2, "", "--lang needs a value"},
        {{"show", "Orchard", "--"}, 0, "orchard name", ""},
        {{"--lang", "--", "ja", "lookup", "x"}, 2, "", "the command lookup must precede \"--\""},
        {{"--"}, 2, "", kNoCommand},
        {{"[a]"}, 2, "", "unknown command \"[a]\""},
        {{"show", "Orchard", ""},
         1,
         "",
         "no item \"\" in \"Orchard\"; see refdoc show \"Orchard\""},
        {{"explain", "Orchard", ""},
         1,
         "Orchard,",
         "no item \"\" in \"Orchard\"; see refdoc show \"Orchard\""},
        {{"explain", "--name", ""}, 1, "", noEntry("")},
        {{"explain", "--name="}, 1, "", noEntry("")},
        {{"explain", "--name"}, 2, "", "--name needs a value"},
    });
}

TEST_F(CommandLineTableTest, OptionsOfOneCommand) {
    expectOutcomes({
        {{"--name", "x", "explain"}, 2, "", "--name must follow the command explain"},
        {{"--name=x", "explain"}, 2, "", "--name must follow the command explain"},
        {{"--sarif", "check"}, 2, "", "--sarif must follow the command check"},
        {{"--rules", "check"}, 2, "", "--rules must follow the command check"},
        {{"--werror", "check"}, 2, "", "--werror must follow the command check"},
        {{"lookup", "--rules"}, 2, "", "--rules must follow the command check"},
        {{"lookup", "--name", "x"}, 2, "", "--name must follow the command explain"},
        {{"show", "Orchard", "--sarif"}, 2, "", "--sarif must follow the command check"},
        {{"check", "--werror"}, 0, "1 file checked, no problems found", ""},
        {{"check", "--werror=missing-key"}, 0, "1 file checked, no problems found", ""},
        {{"check", "--werror", "missing-key"},
         3,
         "no files checked",
         "file or folder \"missing-key\" does not exist"},
        {{"check", "--werror="}, 0, "1 file checked, no problems found", ""},
        {{"check", "--werror=missing-key", "--werror=unknown-key"},
         0,
         "1 file checked, no problems found",
         ""},
        {{"check", "--werror", "--werror=missing-key"}, 0, "1 file checked, no problems found", ""},
        {{"check", "--ignore", "missing-key"}, 0, "1 file checked, no problems found", ""},
        {{"check", "--ignore=missing-key", "--ignore", "unknown-key"},
         0,
         "1 file checked, no problems found",
         ""},
        {{"check", "--ignore"}, 2, "", "--ignore needs a value"},
        {{"check", "--ignore="}, 0, "1 file checked, no problems found", ""},
        {{"check", "--ignore", ""}, 0, "1 file checked, no problems found", ""},
        {{"check", "--ignore", "missing-key", "nowhere"},
         3,
         "no files checked",
         "file or folder \"nowhere\" does not exist"},
        {{"check", "--baseline"}, 2, "", "--baseline needs a value"},
        {{"check", "--baseline", "nowhere"}, 3, "", "the baseline \"nowhere\" does not exist"},
        {{"check", "--baseline=nowhere"}, 3, "", "the baseline \"nowhere\" does not exist"},
        {{"check", "--baseline=nowhere", "--baseline", "also"},
         3,
         "",
         "the baseline \"also\" does not exist"},
        {{"check", "--explain"}, 2, "", "--explain needs a value"},
        {{"check", "--explain", "missing-key"}, 0, "missing-key (error): a required key is m", ""},
        {{"check", "--explain=missing-key"}, 0, "missing-key (error): a required key is m", ""},
        {{"check", "--explain", "bad", "--explain", "missing-key"},
         0,
         "missing-key (error): a required key is m",
         ""},
        {{"check", "nowhere"}, 3, "no files checked", "file or folder \"nowhere\" does not exist"},
        {{"check", "--", "--rules"},
         3,
         "no files checked",
         "file or folder \"--rules\" does not exist"},
        {{"--check.rules"}, 2, "", "unknown option --check.rules"},
        {{"--explain.name", "x"}, 2, "", "unknown option --explain.name"},
        {{"--explain.name=x"}, 2, "", "unknown option --explain.name"},
        {{"--lookup.json"}, 2, "", "unknown option --lookup.json"},
        {{"check", "--rules", "--json"}, 0, "malformed-json                   error  ", ""},
        {{"check", "--werror", "nowhere"},
         3,
         "no files checked",
         "file or folder \"nowhere\" does not exist"},
    });
}

TEST_F(CommandLineTableTest, HelpAndVersion) {
    expectOutcomes({
        {{"--help"}, 0, "Print the reference documentation that t", ""},
        {{"-h"}, 0, "Print the reference documentation that t", ""},
        {{"-hx"}, 0, "Print the reference documentation that t", ""},
        {{"-help"}, 0, "Print the reference documentation that t", ""},
        {{"-h=x"}, 0, "Print the reference documentation that t", ""},
        {{"--help=x"}, 0, "Print the reference documentation that t", ""},
        {{"--help=false"}, 0, "Print the reference documentation that t", ""},
        {{"--help="}, 0, "Print the reference documentation that t", ""},
        {{"--version"}, 0, kVersionLine, ""},
        {{"--version=true"}, 0, kVersionLine, ""},
        {{"--version=false", "lookup", "x"}, 0, kVersionLine, ""},
        {{"--version=x"}, 0, kVersionLine, ""},
        {{"--version="}, 0, kVersionLine, ""},
        {{"--version=false"}, 0, kVersionLine, ""},
        {{"-v"}, 2, "", "unknown option -v"},
        {{"-V"}, 0, kVersionLine, ""},
        {{"help", "show"}, 0, "Print the full records of one product.", ""},
        {{"show", "--help"}, 0, "Print the full records of one product.", ""},
        {{"--help", "show"}, 0, "Print the full records of one product.", ""},
        {{"lookup", "-h"}, 0, "Print the lookup index of all products.", ""},
        {{"show", "--version"}, 0, kVersionLine, ""},
        {{"--help", "--version"}, 0, kVersionLine, ""},
        {{"--version", "--help"}, 0, kVersionLine, ""},
        {{"--help", "--bad"}, 0, "Print the reference documentation that t", ""},
        {{"--bad", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"list", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"--help", "list"}, 0, "Print the reference documentation that t", ""},
        {{"products", "x", "--help"}, 0, "List the products, their languages and f", ""},
        {{"--version", "--bad"}, 0, kVersionLine, ""},
        {{"--bad", "--version"}, 0, kVersionLine, ""},
        {{"list", "--version"}, 0, kVersionLine, ""},
        {{"--help", "--lang"}, 2, "", "--lang needs a value"},
        {{"--lang", "--help"}, 2, "", kNoCommand},
        {{"--version", "--lang"}, 2, "", "--lang needs a value"},
        {{"--help", "--color", "pink"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
        {{"--version", "--color", "pink"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
        {{"--color", "pink", "--version"},
         2,
         "",
         "--color must be auto, always or never, not \"pink\""},
        {{"--json", "--jsonl", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"--json", "--jsonl", "--version"}, 0, kVersionLine, ""},
        {{"lookup", "--", "--version"}, 1, "", noEntry("--version")},
        {{"check", "--sarif", "--json", "--help"},
         0,
         "Find what is silently dropped, changed o",
         ""},
        {{"explain", "--help"}, 0, "Print which file each record comes from,", ""},
        {{"explain", "a", "--name", "b", "--help"},
         0,
         "Print which file each record comes from,",
         ""},
        {{"check", "--ignore", "bad", "--help"}, 0, "Find what is silently dropped, changed o", ""},
        {{"--version", "products", "x"}, 0, kVersionLine, ""},
        {{"show", "--version", "--help"}, 0, kVersionLine, ""},
        {{"--help", "show", "lookup"}, 0, "Print the full records of one product.", ""},
        {{"lookup", "-xh"}, 2, "", "unknown option -xh"},
        {{"lookup", "-hh"}, 0, "Print the lookup index of all products.", ""},
        {{"lookup", "-h-"}, 0, "Print the lookup index of all products.", ""},
        {{"--version", "--version"}, 0, kVersionLine, ""},
        {{"--version", "--version=false"}, 0, kVersionLine, ""},
        {{"--version=false", "--version"}, 0, kVersionLine, ""},
        {{"lookup", "--version=false"}, 0, kVersionLine, ""},
        {{"--help", "--version=x"}, 0, kVersionLine, ""},
    });
}

TEST_F(CommandLineTableTest, UnknownRules) {
    expectOutcomes(
        {
            {{"check", "--werror=bad"}, 2, "", "unknown rule \"bad\""},
            {{"check", "--ignore", "bad"}, 2, "", "unknown rule \"bad\""},
            {{"check", "--ignore", "[a,b]"}, 2, "", "unknown rule \"[a,b]\""},
            {{"check", "--ignore=[missing-key,unknown-key]"},
             2,
             "",
             "unknown rule \"[missing-key,unknown-key]\""},
            {{"check", "--ignore", "[missing-key,unknown-key]"},
             2,
             "",
             "unknown rule \"[missing-key,unknown-key]\""},
            {{"check", "--ignore={}"}, 2, "", "unknown rule \"{}\""},
            {{"check", "--ignore=%%"}, 2, "", "unknown rule \"%%\""},
            {{"check", "--ignore=missing-key,unknown-key"},
             2,
             "",
             "unknown rule \"missing-key,unknown-key\""},
            {{"check", "--werror=[missing-key]"},
             2,
             "",
             "unknown rule \"[missing-key]\"; did you mean \"missing-key\"?"},
            {{"check", "--werror={}"}, 2, "", "unknown rule \"{}\""},
            {{"check", "--ignore", "--werror"}, 2, "", "unknown rule \"--werror\""},
            {{"check", "--ignore", "--ignore="}, 2, "", "unknown rule \"--ignore=\""},
            {{"check", "--explain", "bad"}, 2, "", "unknown rule \"bad\""},
        },
        "refdoc check --rules");
}

} // namespace
} // namespace refdoc_tests
