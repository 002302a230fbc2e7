#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

constexpr std::size_t kCompared = 40; // characters of the first line of the output

// A command line, its exit status, the start of what it prints, and its complaint if there is one.
// Complaints about wrong usage go on with a hint.
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
        {{}, 2, "", "a command is needed: show, lookup, products, explain or check"},
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
        {{"explain", "Orchard", "a.html", "c"},
         2,
         "",
         "the following argument was not expected: c"},
        {{"explain", "--name", "x"}, 1, "x", noEntry("x")},
        {{"explain", "Orchard", "--name", "x"}, 2, "", "explain needs either a PRODUCT or --name"},
        {{"check"}, 0, "nothing found", ""},
        {{"check", "--rules"}, 0, "malformed-json                   error  ", ""},
        {{"products", "Orchard"}, 2, "", "the following argument was not expected: Orchard"},
        {{"products", ""}, 2, "", "the following argument was not expected: "},
        {{"list"}, 2, "", "there is no command or option list"},
        {{"shwo", "Orchard"}, 2, "", "there is no command or option shwo"},
        {{"Show", "Orchard"}, 2, "", "there is no command or option Show"},
        {{"sho", "Orchard"}, 2, "", "there is no command or option sho"},
        {{""}, 2, "", "there is no command or option "},
        {{"-"}, 2, "", "there is no command or option -"},
        {{"products", "lookup"}, 2, "", "the following argument was not expected: lookup"},
        {{"lookup", "lookup"}, 1, "", noEntry("lookup")},
        {{"list", "lookup"}, 2, "", "the following argument was not expected: list"},
        {{"--", "lookup", "x"}, 2, "", "there is no command or option lookup"},
    });
}

TEST_F(CommandLineTableTest, OptionsWithValues) {
    expectOutcomes({
        {{"--lang", "ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "", "lookup", "x"}, 1, "", noEntry("x")},
        {{"lookup", "--lang"}, 2, "", "--lang: 1 required L missing"},
        {{"lookup", "x", "--lang", "ja"}, 1, "", noEntry("x")},
        {{"--lang", "--json", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "-x", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "lookup"},
         2,
         "",
         "a command is needed: show, lookup, products, explain or check"},
        {{"--lang", "lookup", "lookup", "x"}, 1, "", noEntry("x")},
        {{"lookup", "--lang", "--"}, 2, "", "--lang: 1 required L missing"},
        {{"--lang=a=b", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=--json", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "[a,b]", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang=[a,b]", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang={}", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--lang", "de", "--lang", "ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--install", "nowhere", "--install", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--root", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--root"}, 2, "", "--root: 1 required DIR missing"},
        {{"--support-folder", ".", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--support-folder"}, 2, "", "--support-folder: 1 required DIR missing"},
        {{"--langs", "en,ja", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--langs=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--langs"}, 2, "", "--langs: 1 required L,L,... missing"},
        {{"--installed", "a,b", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--installed=", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--installed"}, 2, "", "--installed: 1 required N,N,... missing"},
        {{"--support-packages", "a", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--support-packages"}, 2, "", "--support-packages: 1 required N,N,... missing"},
        {{"lookup", "--install"}, 2, "", "--install: 1 required DIR missing"},
        {{"--color", "always", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color=never", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color", "auto", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--color", "pink", "lookup"}, 2, "", "--color: pink not in {auto,always,never}"},
        {{"--color=", "lookup"}, 2, "", "--color:  not in {auto,always,never}"},
        {{"--color", "", "lookup"}, 2, "", "--color:  not in {auto,always,never}"},
        {{"--color"}, 2, "", "--color: 1 required WHEN:{auto,always,never} missing"},
        {{"--color", "Always", "lookup"}, 2, "", "--color: Always not in {auto,always,never}"},
        {{"--color", "pink", "--color", "auto", "lookup", "x"},
         2,
         "",
         "--color: pink not in {auto,always,never}"},
        {{"--color", "auto", "--color", "pink", "lookup", "x"},
         2,
         "",
         "--color: pink not in {auto,always,never}"},
    });
}

TEST_F(CommandLineTableTest, OptionsWithoutValues) {
    expectOutcomes({
        {{"--json", "lookup", "x"}, 1, "{", noEntry("x")},
        {{"--jsonl", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--verbose", "products"}, 0, "Folders", ""},
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
        {{"--json"}, 2, "", "a command is needed: show, lookup, products, explain or check"},
        {{"--json", "true", "lookup"}, 2, "", "the following argument was not expected: true"},
        {{"lookup", "--json", "true"}, 1, "{", noEntry("true")},
        {{"--json", "--jsonl", "lookup"}, 2, "", "--json excludes --jsonl"},
        {{"--jsonl", "--json", "lookup"}, 2, "", "--json excludes --jsonl"},
        {{"lookup", "--jsonl", "--json"}, 2, "", "--json excludes --jsonl"},
        {{"check", "--json", "--sarif"}, 2, "", "--json excludes --sarif"},
        {{"check", "--sarif", "--json"}, 2, "", "--json excludes --sarif"},
        {{"--json", "check", "--sarif"}, 2, "", "--json excludes --sarif"},
        {{"check", "--jsonl", "--sarif"}, 0, "{\"$schema\":\"https://json.schemastore.org", ""},
        {{"check", "--sarif", "--jsonl"}, 0, "{\"$schema\":\"https://json.schemastore.org", ""},
        {{"check", "--json=false", "--sarif"}, 2, "", "--json excludes --sarif"},
        {{"check", "--json"}, 0, "", ""},
        {{"check", "--jsonl"}, 0, "", ""},
        {{"check", "--sarif"}, 0, "{\"$schema\":\"https://json.schemastore.org", ""},
    });
}

TEST_F(CommandLineTableTest, UnknownOptionsAndNamesThatBeginWithADash) {
    expectOutcomes({
        {{"--bad"}, 2, "", "there is no command or option --bad"},
        {{"--bad", "lookup", "x"}, 2, "", "the following argument was not expected: --bad"},
        {{"lookup", "--bad"}, 2, "", "the following argument was not expected: --bad"},
        {{"lookup", "x", "--bad", "y"}, 2, "", "the following argument was not expected: --bad"},
        {{"--bad=1", "lookup"}, 2, "", "the following argument was not expected: --bad=1"},
        {{"--lnag", "ja", "lookup"}, 2, "", "the following arguments were not expected: ja --lnag"},
        {{"--verb", "lookup"}, 2, "", "the following argument was not expected: --verb"},
        {{"--JSON", "lookup"}, 2, "", "the following argument was not expected: --JSON"},
        {{"--lan=ja", "lookup", "x"}, 2, "", "the following argument was not expected: --lan=ja"},
        {{"-x"}, 2, "", "there is no command or option -x"},
        {{"lookup", "-x"}, 2, "", "the following argument was not expected: -x"},
        {{"lookup", "-xh"}, 2, "", "the following argument was not expected: -xh"},
        {{"-j", "lookup"}, 2, "", "the following argument was not expected: -j"},
        {{"lookup", "-json"}, 2, "", "the following argument was not expected: -json"},
        {{"lookup", "-lang", "ja"}, 2, "", "the following argument was not expected: -lang"},
        {{"lookup", "-5"}, 1, "", noEntry("-5")},
        {{"lookup", "-5x"}, 1, "", noEntry("-5x")},
        {{"lookup", "---x"}, 1, "", noEntry("---x")},
        {{"lookup", "--!"}, 1, "", noEntry("--!")},
        {{"lookup", "-!"}, 1, "", noEntry("-!")},
        {{"lookup", "- x"}, 1, "", noEntry("- x")},
        {{"lookup", "-- x"}, 1, "", noEntry("-- x")},
        {{"lookup", "--=x"}, 2, "", "the following argument was not expected: --=x"},
        {{"lookup", "-=x"}, 2, "", "the following argument was not expected: -=x"},
        {{"lookup", "-"}, 1, "", noEntry("-")},
        {{"lookup", "-ä"}, 2, "", "the following argument was not expected: -ä"},
        {{"lookup", "--ä"}, 2, "", "the following argument was not expected: --ä"},
        {{"lookup", "--1"}, 2, "", "the following argument was not expected: --1"},
        {{"lookup", "-{"}, 2, "", "the following argument was not expected: -{"},
        {{"lookup", "-,"}, 2, "", "the following argument was not expected: -,"},
        {{"-5"}, 2, "", "there is no command or option -5"},
        {{"---x"}, 2, "", "there is no command or option ---x"},
        {{"products", "-5"}, 2, "", "the following argument was not expected: -5"},
        {{"products", "---x"}, 2, "", "the following argument was not expected: ---x"},
    });
}

TEST_F(CommandLineTableTest, NamesThatLookLikeSomethingElse) {
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
        {{"products", "--", "--json"}, 2, "", "the following argument was not expected: --json"},
        {{"products", "--"}, 0, "Folders", ""},
        {{"--", "products"}, 2, "", "there is no command or option products"},
        {{"--", "--json", "lookup"}, 2, "", "there is no command or option --json"},
        {{"explain", "Orchard", "--", "--help"},
         1,
         "Orchard, --help",
         "no item \"--help\" in \"Orchard\"; see refdoc show \"Orchard\""},
        {{"show", "Orchard", "--lang", "--", "x"}, 0, "orchard name", ""},
        {{"show", "Orchard", "--lang", "--"}, 2, "", "--lang: 1 required L missing"},
        {{"show", "Orchard", "--"}, 0, "orchard name", ""},
        {{"--lang", "--", "ja", "lookup", "x"}, 2, "", "there is no command or option lookup"},
        {{"--"}, 2, "", "a command is needed: show, lookup, products, explain or check"},
        {{"[a]"}, 2, "", "there is no command or option [a]"},
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
        {{"explain", "--name"}, 2, "", "--name: 1 required NAME missing"},
    });
}

TEST_F(CommandLineTableTest, OptionsOfOneCommand) {
    expectOutcomes({
        {{"--name", "x", "explain"}, 2, "", "the following arguments were not expected: x --name"},
        {{"--name=x", "explain"}, 2, "", "the following argument was not expected: --name=x"},
        {{"--sarif", "check"}, 2, "", "the following argument was not expected: --sarif"},
        {{"--rules", "check"}, 2, "", "the following argument was not expected: --rules"},
        {{"--werror", "check"}, 2, "", "the following argument was not expected: --werror="},
        {{"lookup", "--rules"}, 2, "", "the following argument was not expected: --rules"},
        {{"lookup", "--name", "x"}, 2, "", "the following argument was not expected: --name"},
        {{"show", "Orchard", "--sarif"}, 2, "", "the following argument was not expected: --sarif"},
        {{"check", "--werror"}, 0, "nothing found", ""},
        {{"check", "--werror=missing-key"}, 0, "nothing found", ""},
        {{"check", "--werror", "missing-key"}, 3, "", "there is no file or folder \"missing-key\""},
        {{"check", "--werror="}, 0, "nothing found", ""},
        {{"check", "--werror=missing-key", "--werror=unknown-key"}, 0, "nothing found", ""},
        {{"check", "--werror", "--werror=missing-key"}, 0, "nothing found", ""},
        {{"check", "--ignore", "missing-key"}, 0, "nothing found", ""},
        {{"check", "--ignore=missing-key", "--ignore", "unknown-key"}, 0, "nothing found", ""},
        {{"check", "--ignore"}, 2, "", "--ignore: 1 required RULE missing"},
        {{"check", "--ignore="}, 0, "nothing found", ""},
        {{"check", "--ignore", ""}, 0, "nothing found", ""},
        {{"check", "--ignore", "missing-key", "nowhere"},
         3,
         "",
         "there is no file or folder \"nowhere\""},
        {{"check", "--baseline"}, 2, "", "--baseline: 1 required FILE missing"},
        {{"check", "--baseline", "nowhere"}, 3, "", "can't read the baseline \"nowhere\""},
        {{"check", "--baseline=nowhere"}, 3, "", "can't read the baseline \"nowhere\""},
        {{"check", "--baseline=nowhere", "--baseline", "also"},
         3,
         "",
         "can't read the baseline \"also\""},
        {{"check", "--explain"}, 2, "", "--explain: 1 required RULE missing"},
        {{"check", "--explain", "missing-key"}, 0, "missing-key (error): a required key is m", ""},
        {{"check", "--explain=missing-key"}, 0, "missing-key (error): a required key is m", ""},
        {{"check", "--explain", "bad", "--explain", "missing-key"},
         0,
         "missing-key (error): a required key is m",
         ""},
        {{"check", "nowhere"}, 3, "", "there is no file or folder \"nowhere\""},
        {{"check", "--", "--rules"}, 3, "", "there is no file or folder \"--rules\""},
        {{"--check.rules"}, 2, "", "there is no command or option --check.rules"},
        {{"--explain.name", "x"}, 2, "", "there is no command or option --explain.name"},
        {{"--explain.name=x"}, 2, "", "there is no command or option --explain.name=x"},
        {{"--lookup.json"}, 2, "", "there is no command or option --lookup.json"},
        {{"check", "--rules", "--json"}, 0, "malformed-json                   error  ", ""},
        {{"check", "--werror", "nowhere"}, 3, "", "there is no file or folder \"nowhere\""},
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
        {{"--version"}, 0, "refdoc 1.0.0", ""},
        {{"--version=true"}, 0, "refdoc 1.0.0", ""},
        {{"--version=false", "lookup", "x"}, 1, "", noEntry("x")},
        {{"--version=x"}, 2, "", "Could not convert: --version = x"},
        {{"--version="}, 2, "", "Could not convert: --version = "},
        {{"--version=false"},
         2,
         "",
         "a command is needed: show, lookup, products, explain or check"},
        {{"-v"}, 2, "", "there is no command or option -v"},
        {{"-V"}, 2, "", "there is no command or option -V"},
        {{"show", "--help"}, 0, "Print the full records of one product", ""},
        {{"--help", "show"}, 0, "Print the full records of one product", ""},
        {{"lookup", "-h"}, 0, "Print the lookup index of all products", ""},
        {{"show", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"--help", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"--version", "--help"}, 0, "refdoc 1.0.0", ""},
        {{"--help", "--bad"}, 0, "Print the reference documentation that t", ""},
        {{"--bad", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"list", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"--help", "list"}, 0, "Print the reference documentation that t", ""},
        {{"products", "x", "--help"}, 0, "Print what was found: product files, ins", ""},
        {{"--version", "--bad"}, 0, "refdoc 1.0.0", ""},
        {{"--bad", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"list", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"--help", "--lang"}, 2, "", "--lang: 1 required L missing"},
        {{"--lang", "--help"},
         2,
         "",
         "a command is needed: show, lookup, products, explain or check"},
        {{"--version", "--lang"}, 2, "", "--lang: 1 required L missing"},
        {{"--help", "--color", "pink"}, 2, "", "--color: pink not in {auto,always,never}"},
        {{"--version", "--color", "pink"}, 2, "", "--color: pink not in {auto,always,never}"},
        {{"--color", "pink", "--version"}, 2, "", "--color: pink not in {auto,always,never}"},
        {{"--json", "--jsonl", "--help"}, 0, "Print the reference documentation that t", ""},
        {{"--json", "--jsonl", "--version"}, 0, "refdoc 1.0.0", ""},
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
        {{"--version", "products", "x"}, 0, "refdoc 1.0.0", ""},
        {{"show", "--version", "--help"}, 0, "refdoc 1.0.0", ""},
        {{"--help", "show", "lookup"}, 0, "Print the full records of one product", ""},
        {{"lookup", "-xh"}, 2, "", "the following argument was not expected: -xh"},
        {{"lookup", "-hh"}, 0, "Print the lookup index of all products", ""},
        {{"lookup", "-h-"}, 0, "Print the lookup index of all products", ""},
        {{"--version=0", "products"}, 0, "Folders", ""},
        {{"--version=2"}, 0, "refdoc 1.0.0", ""},
        {{"--version=-1", "products"}, 0, "Folders", ""},
        {{"--version=on"}, 0, "refdoc 1.0.0", ""},
        {{"--version=off", "products"}, 0, "Folders", ""},
        {{"--version=no", "products"}, 0, "Folders", ""},
        {{"--version", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"--version", "--version=false"},
         2,
         "",
         "a command is needed: show, lookup, products, explain or check"},
        {{"--version=false", "--version"}, 0, "refdoc 1.0.0", ""},
        {{"--help", "--version=x"}, 2, "", "Could not convert: --version = x"},
    });
}

TEST_F(CommandLineTableTest, UnknownRules) {
    expectOutcomes(
        {
            {{"check", "--werror=bad"}, 2, "", "there is no rule \"bad\""},
            {{"check", "--ignore", "bad"}, 2, "", "there is no rule \"bad\""},
            {{"check", "--ignore", "[a,b]"}, 2, "", "there is no rule \"[a,b]\""},
            {{"check", "--ignore=[missing-key,unknown-key]"},
             2,
             "",
             "there is no rule \"[missing-key,unknown-key]\""},
            {{"check", "--ignore", "[missing-key,unknown-key]"},
             2,
             "",
             "there is no rule \"[missing-key,unknown-key]\""},
            {{"check", "--ignore={}"}, 2, "", "there is no rule \"{}\""},
            {{"check", "--ignore=%%"}, 2, "", "there is no rule \"%%\""},
            {{"check", "--ignore=missing-key,unknown-key"},
             2,
             "",
             "there is no rule \"missing-key,unknown-key\""},
            {{"check", "--werror=[missing-key]"},
             2,
             "",
             "there is no rule \"[missing-key]\"; did you mean \"missing-key\"?"},
            {{"check", "--werror={}"}, 2, "", "there is no rule \"{}\""},
            {{"check", "--ignore", "--werror"}, 2, "", "there is no rule \"--werror=␟\""},
            {{"check", "--ignore", "--ignore="}, 2, "", "there is no rule \"--ignore=␟\""},
            {{"check", "--explain", "bad"}, 2, "", "there is no rule \"bad\""},
        },
        "refdoc check --rules");
}

} // namespace
} // namespace refdoc_tests
