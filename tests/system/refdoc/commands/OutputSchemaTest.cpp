#include "tests/support/Schema.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"
#include "tests/system/refdoc/commands/FullProduct.hpp"

#include <boost/json/serialize.hpp>

#include <algorithm>
#include <functional>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using docparser_tests::Schema;
using testing::HasSubstr;
using testing::SizeIs;

using Arguments = std::vector<std::string>;

constexpr const char* kOutput = "refdoc-output.schema.json";
constexpr const char* kExplain = "refdoc-explain.schema.json";

// What the program prints for the samples.
std::string sampleOutput(Arguments arguments) {
    arguments.insert(arguments.begin(), {"--install", samplesFolder()});
    const Outcome outcome = runProgram(arguments);
    EXPECT_LE(outcome.status, 1) << outcome.err;
    return outcome.out;
}

// A command line, and the definition in a schema that its output has with --json. With --jsonl, its
// lines have the definition with "Line" after its name.
struct SampleCommand {
    const char* schema;
    std::string definition;
    Arguments arguments;
};

const std::vector<SampleCommand> kCommands{
    {kOutput, "show", {"show", "Orchard"}},
    {kOutput, "show", {"show", "Cellar"}},
    {kOutput, "show", {"show", "HiveScale"}},
    {kOutput, "show", {"show", "Orchard", "ref/smooth.html"}},
    {kOutput, "lookup", {"lookup"}},
    {kOutput, "lookup", {"lookup", "smooth", "hivescale"}},
    {kOutput, "products", {"products"}},
    {kOutput, "search", {"search", "smooth"}},
    {kExplain, "explain", {"explain", "Orchard"}},
    {kExplain, "explain", {"explain", "Orchard", "ref/smooth.html"}},
    {kExplain, "explain", {"explain", "--name", "smooth"}}};

// Calls use(output, its command) with the output of each command in several languages.
void forEachSampleOutput(const char* format,
                         const std::function<void(const std::string&, const SampleCommand&)>& use) {
    for (const SampleCommand& command : kCommands) {
        for (const char* language : {"en", "de", "ja", "fr", ""}) {
            SCOPED_TRACE(language + testing::PrintToString(command.arguments));
            Arguments arguments{format, "--lang", language};
            arguments.insert(arguments.end(), command.arguments.begin(), command.arguments.end());
            use(sampleOutput(arguments), command);
        }
    }
}

TEST(OutputSchemaTest, DocumentsOfTheSamplesAreValidInEveryLanguage) {
    forEachSampleOutput("--json", [](const std::string& output, const SampleCommand& command) {
        const Schema schema(command.schema, command.definition);
        EXPECT_EQ(schema.problemsOf(document(output)), "");
    });
}

TEST(OutputSchemaTest, LinesOfTheSamplesAreValidInEveryLanguage) {
    forEachSampleOutput("--jsonl", [](const std::string& output, const SampleCommand& command) {
        const Schema schema(command.schema, command.definition + "Line");
        const std::vector<json::value> lines = documents(output);
        EXPECT_FALSE(lines.empty());
        for (const json::value& line : lines)
            EXPECT_EQ(schema.problemsOf(line), "") << json::serialize(line);
    });
}

TEST(OutputSchemaTest, EmptyDocumentsAreValid) {
    EXPECT_EQ(Schema(kOutput, "show").problemsOf(document(sampleOutput({"--json", "show", "X"}))),
              "");
    EXPECT_EQ(
        Schema(kOutput, "lookup").problemsOf(document(sampleOutput({"--json", "lookup", "x"}))),
        "");
}

// Calls use() with the document damaged in each possible way: one member removed from one of its
// objects, or one added to it.
void forEachDamage(const json::value& whole, const std::function<void(const json::value&)>& use) {
    json::value copy = whole;
    const std::function<void(json::value&)> walk = [&](json::value& value) {
        if (json::array* array = value.if_array()) {
            for (json::value& element : *array)
                walk(element);
        } else if (json::object* object = value.if_object()) {
            const json::object before = *object;
            for (const auto& member : before) {
                object->erase(member.key());
                use(copy);
                *object = before;
            }
            object->emplace("surprise", "");
            use(copy);
            *object = before;
            for (auto& member : *object)
                walk(member.value());
        }
    };
    walk(copy);
}

class OutputSchemaFolderTest : public RefdocTest {};

TEST_F(OutputSchemaFolderTest, RejectsMissingAndAdditionalMembers) {
    addResource("Orchard", kFullProduct);
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    for (const auto& [file, definition, arguments] :
         {SampleCommand{kOutput, "showLine", {"--jsonl", "show", "Orchard"}},
          {kOutput, "lookupLine", {"--jsonl", "lookup"}},
          {kOutput, "productsLine", {"--jsonl", "products"}},
          {kOutput, "products", {"--json", "products"}},
          {kOutput, "searchLine", {"--jsonl", "search", "a"}},
          {kOutput, "search", {"--json", "search", "a"}},
          {kExplain, "explainLine", {"--jsonl", "explain", "Orchard"}}}) {
        const Schema schema(file, definition);
        const std::string output = run(arguments).out;
        const json::value whole =
            arguments.front() == "--json" ? document(output) : documents(output).front();
        ASSERT_EQ(schema.problemsOf(whole), "");
        int damages = 0;
        forEachDamage(whole, [&](const json::value& damaged) {
            ++damages;
            EXPECT_FALSE(schema.accepts(damaged)) << json::serialize(damaged);
        });
        EXPECT_GT(damages, 5);
    }
}

TEST_F(OutputSchemaFolderTest, EachDocumentMatchesOneDefinitionOnly) {
    addResource("Orchard", kFullProduct);
    const json::value shown = document(run({"--json", "show", "Orchard"}).out);
    EXPECT_TRUE(Schema(kOutput).accepts(shown));
    EXPECT_TRUE(Schema(kOutput, "show").accepts(shown));
    for (const char* other :
         {"lookup", "products", "search", "showLine", "lookupLine", "productsLine", "searchLine"})
        EXPECT_FALSE(Schema(kOutput, other).accepts(shown)) << other;
}

class JsonLinesTest : public RefdocTest {};

TEST_F(JsonLinesTest, PrintsEachRecordOfTheIndexWithItsSection) {
    addLookup("P", section("p", R"({"name": "graft", "href": "a.html", "refpurpose": "Join",
                                    "deprecated": true},
                                   {"name": "graft", "href": "b.html", "refpurpose": "Join"})"));
    addLookup("Q", section("q", R"({"name": "prune", "href": "c.html", "refpurpose": "Cut"})"));
    const auto record = [](const char* name, const char* purpose, bool isDeprecated,
                           const char* href) {
        return json::serialize(json::object{{"name", name},
                                            {"entityType", "function"},
                                            {"refPurpose", purpose},
                                            {"deprecated", isDeprecated},
                                            {"href", href},
                                            {"functionType", "function"}});
    };
    const std::string inQ =
        R"({"product":"Q","section":"q","language":"de","installed":true,"record":)";
    const std::string inP =
        R"({"product":"P","section":"p","language":"de","installed":false,"record":)";
    EXPECT_EQ(run({"--jsonl", "--installed", "q", "--lang", "de", "lookup"}),
              (Outcome{0,
                       inQ + record("prune", "Cut", false, "c.html") + "}\n" +     //
                           inP + record("graft", "Join", true, "a.html") + "}\n" + //
                           inP + record("graft", "Join", false, "b.html") + "}\n",
                       ""}));
}

TEST_F(JsonLinesTest, RecordsEqualThoseOfTheDocument) {
    addResource("Orchard", kFullProduct);
    const json::value whole = document(run({"--json", "show", "Orchard"}).out);
    const std::vector<json::value> lines =
        documents(run({"--jsonl", "--installed", "orchard", "show", "Orchard"}).out);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_EQ(lines[0].at("record"), whole.at_pointer("/resources/orchard/items/graft.html/0"));
    EXPECT_EQ(lines[0].at("product"), "Orchard");
    EXPECT_EQ(lines[0].at("section"), "orchard");
    EXPECT_EQ(lines[0].at("installed"), true);
}

TEST_F(JsonLinesTest, NoStringEndsALine) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html",
                                    "refpurpose": "\n\r\u0085\u2028\u2029x\ud834\udd1e"})"));
    const std::string out = run({"--jsonl", "lookup"}).out;
    EXPECT_THAT(out, HasSubstr("\"\\n\\r\\u0085\\u2028\\u2029"));
    EXPECT_THAT(out, HasSubstr("x𝄞\""));
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
}

TEST_F(JsonLinesTest, PrintsNothingForWhatIsNotFound) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    const Outcome some = run({"--jsonl", "lookup", "a", "zzz"});
    EXPECT_EQ(some.status, 1);
    EXPECT_THAT(documents(some.out), SizeIs(1));
    const Outcome none = run({"--jsonl", "show", "None"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_THAT(none.err, HasSubstr("no resources for \"None\""));
}

TEST_F(JsonLinesTest, PrintsNothingForAnEmptyIndex) {
    EXPECT_EQ(run({"--jsonl", "lookup"}), (Outcome{0, "", ""}));
}

TEST_F(JsonLinesTest, PrintsEachProductFile) {
    addResource("Orchard", section("orchard", ""));
    addResource("Orchard_de", section("orchard", ""));
    add("support/Kit.json", section("kit", ""));
    addLookup("Vine", section("vine", ""));
    std::vector<std::string> found;
    for (const json::value& line :
         documents(run({"--jsonl", "--support-folder", path("support"), "--lang", "de", "products"})
                       .out)) {
        const json::object& file = line.as_object();
        found.push_back(std::string(file.at("product").as_string().c_str()) + " " +
                        file.at("place").as_string().c_str() + " " +
                        file.at("language").as_string().c_str());
    }
    EXPECT_THAT(found,
                testing::UnorderedElementsAre("Orchard referenceApi en", "Orchard referenceApi de",
                                              "Kit supportPackages en", "Vine lookup en"));
}

TEST_F(JsonLinesTest, IsExclusiveWithJson) {
    EXPECT_EQ(
        run({"--json", "--jsonl", "lookup"}),
        (Outcome{2, "", "refdoc: --json and --jsonl cannot be combined; see refdoc --help\n"}));
}

} // namespace
} // namespace refdoc_tests
