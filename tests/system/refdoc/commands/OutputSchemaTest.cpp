#include "tests/system/refdoc/RefdocTest.hpp"
#include "tests/system/refdoc/commands/FullProduct.hpp"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <valijson/adapters/boost_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using testing::HasSubstr;
using testing::SizeIs;

using Arguments = std::vector<std::string>;

// One definition of the published schema, "show" or "lookupLine", say.
class OutputSchema {
public:
    explicit OutputSchema(const std::string& definition) {
        std::ifstream stream(OUTPUT_SCHEMA, std::ios::binary);
        json::value text = json::parse(std::string{std::istreambuf_iterator<char>(stream), {}});
        text.as_object()["oneOf"] = json::array{{{"$ref", "#/definitions/" + definition}}};
        valijson::SchemaParser(valijson::SchemaParser::kDraft7)
            .populateSchema(valijson::adapters::BoostJsonAdapter(text), schema_);
    }

    bool accepts(const json::value& document) const {
        valijson::Validator validator;
        return validator.validate(schema_, valijson::adapters::BoostJsonAdapter(document), nullptr);
    }

private:
    valijson::Schema schema_;
};

std::vector<json::value> linesOf(const std::string& text) {
    std::vector<json::value> documents;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        documents.push_back(document(line));
    return documents;
}

// What the program prints for the samples.
std::string sampleOutput(Arguments arguments) {
    arguments.insert(arguments.begin(), {"--install", SAMPLES_FOLDER});
    const Outcome outcome = runProgram(arguments);
    EXPECT_LE(outcome.status, 1) << outcome.err;
    return outcome.out;
}

// What is asked of the samples, and the definition that the answer has.
const std::vector<std::pair<std::string, Arguments>> kCommands{
    {"show", {"show", "Orchard"}},   {"show", {"show", "Cellar"}},
    {"show", {"show", "HiveScale"}}, {"show", {"show", "Orchard", "ref/smooth.html"}},
    {"lookup", {"lookup"}},          {"lookup", {"lookup", "smooth", "hivescale"}},
    {"products", {"products"}}};

TEST(OutputSchemaTest, EveryDocumentOfTheSamplesIsValidInEveryLanguage) {
    for (const auto& [definition, command] : kCommands) {
        const OutputSchema schema(definition);
        for (const char* language : {"en", "de", "ja", "fr", ""}) {
            Arguments arguments{"--json", "--lang", language};
            arguments.insert(arguments.end(), command.begin(), command.end());
            EXPECT_TRUE(schema.accepts(document(sampleOutput(arguments))))
                << testing::PrintToString(arguments);
        }
    }
}

TEST(OutputSchemaTest, EveryLineOfTheSamplesIsValidInEveryLanguage) {
    for (const auto& [definition, command] : kCommands) {
        const OutputSchema schema(definition + "Line");
        for (const char* language : {"en", "de", "ja", "fr", ""}) {
            Arguments arguments{"--jsonl", "--lang", language};
            arguments.insert(arguments.end(), command.begin(), command.end());
            const std::vector<json::value> lines = linesOf(sampleOutput(arguments));
            EXPECT_FALSE(lines.empty());
            for (const json::value& line : lines)
                EXPECT_TRUE(schema.accepts(line)) << json::serialize(line);
        }
    }
}

TEST(OutputSchemaTest, AnswersWithoutFindingsAreValid) {
    EXPECT_TRUE(OutputSchema("show").accepts(document(sampleOutput({"--json", "show", "None"}))));
    EXPECT_TRUE(
        OutputSchema("lookup").accepts(document(sampleOutput({"--json", "lookup", "none"}))));
}

// Calls use(changed document) for the document without each of its members in turn, and with a
// member more in each of its objects. Objects whose members have names of their own are passed
// over.
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

TEST_F(OutputSchemaFolderTest, RefusesALineOfWhichAnythingIsMissingOrAdded) {
    addResource("Orchard", kFullProduct);
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    for (const auto& [definition, command] :
         {std::pair<const char*, Arguments>{"showLine", {"--jsonl", "show", "Orchard"}},
          {"lookupLine", {"--jsonl", "lookup"}},
          {"productsLine", {"--jsonl", "products"}},
          {"products", {"--json", "products"}}}) {
        const OutputSchema schema(definition);
        const std::string out = run(command).out;
        const json::value whole =
            definition == std::string("products") ? document(out) : linesOf(out).front();
        ASSERT_TRUE(schema.accepts(whole));
        int damages = 0;
        forEachDamage(whole, [&](const json::value& damaged) {
            ++damages;
            EXPECT_FALSE(schema.accepts(damaged)) << json::serialize(damaged);
        });
        EXPECT_GT(damages, 5);
    }
}

TEST_F(OutputSchemaFolderTest, AnyDocumentHasExactlyOneMeaning) {
    addResource("Orchard", kFullProduct);
    const json::value shown = document(run({"--json", "show", "Orchard"}).out);
    EXPECT_TRUE(OutputSchema("show").accepts(shown));
    for (const char* other : {"lookup", "products", "showLine", "lookupLine", "productsLine"})
        EXPECT_FALSE(OutputSchema(other).accepts(shown)) << other;
}

class JsonLinesTest : public RefdocTest {};

TEST_F(JsonLinesTest, EachRecordOfTheIndexIsALineWithWhereItComesFrom) {
    addLookup("P", section("p", R"({"name": "graft", "href": "a.html", "refpurpose": "Join",
                                    "deprecated": true},
                                   {"name": "graft", "href": "b.html", "refpurpose": "Join"})"));
    addLookup("Q", section("q", R"({"name": "prune", "href": "c.html", "refpurpose": "Cut"})"));
    EXPECT_EQ(run({"--jsonl", "--installed", "q", "--lang", "de", "lookup"}),
              (Outcome{0,
                       R"({"product": "Q", "section": "q", "language": "de", "installed": true, )"
                       R"("record": {"name": "prune", "entityType": "function", )"
                       R"("refPurpose": "Cut", "deprecated": false, "href": "c.html", )"
                       R"("functionType": "function"}})"
                       "\n"
                       R"({"product": "P", "section": "p", "language": "de", "installed": false, )"
                       R"("record": {"name": "graft", "entityType": "function", )"
                       R"("refPurpose": "Join", "deprecated": true, "href": "a.html", )"
                       R"("functionType": "function"}})"
                       "\n"
                       R"({"product": "P", "section": "p", "language": "de", "installed": false, )"
                       R"("record": {"name": "graft", "entityType": "function", )"
                       R"("refPurpose": "Join", "deprecated": false, "href": "b.html", )"
                       R"("functionType": "function"}})"
                       "\n",
                       ""}));
}

TEST_F(JsonLinesTest, TheRecordsAreThoseOfTheDocument) {
    addResource("Orchard", kFullProduct);
    const json::value whole = document(run({"--json", "show", "Orchard"}).out);
    const std::vector<json::value> lines =
        linesOf(run({"--jsonl", "--installed", "orchard", "show", "Orchard"}).out);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_EQ(lines[0].at("record"), whole.at_pointer("/resources/orchard/items/graft.html/0"));
    EXPECT_EQ(lines[0].at("product"), "Orchard");
    EXPECT_EQ(lines[0].at("section"), "orchard");
    EXPECT_EQ(lines[0].at("installed"), true);
}

TEST_F(JsonLinesTest, NoTextEndsALine) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html",
                                    "refpurpose": "\n\r\u0085\u2028\u2029x\ud834\udd1e"})"));
    const std::string out = run({"--jsonl", "lookup"}).out;
    EXPECT_THAT(out, HasSubstr("\"\\n\\r\\u0085\\u2028\\u2029"));
    EXPECT_THAT(out, HasSubstr("x𝄞\""));
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1);
}

TEST_F(JsonLinesTest, WhatIsNotFoundIsNoLineAndStatus1) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    const Outcome some = run({"--jsonl", "lookup", "a", "zzz"});
    EXPECT_EQ(some.status, 1);
    EXPECT_THAT(linesOf(some.out), SizeIs(1));
    const Outcome none = run({"--jsonl", "show", "None"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
    EXPECT_THAT(none.err, HasSubstr("no resources for \"None\""));
}

TEST_F(JsonLinesTest, AnEmptyIndexIsNoLineAtAll) {
    EXPECT_EQ(run({"--jsonl", "lookup"}), (Outcome{0, "", ""}));
}

TEST_F(JsonLinesTest, EachProductFileIsALine) {
    addResource("Orchard", section("orchard", ""));
    addResource("Orchard_de", section("orchard", ""));
    add("support/Kit.json", section("kit", ""));
    addLookup("Vine", section("vine", ""));
    std::vector<std::string> found;
    for (const json::value& line :
         linesOf(run({"--jsonl", "--support-folder", path("support"), "--lang", "de", "products"})
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

TEST_F(JsonLinesTest, DoesNotGoWithJson) {
    EXPECT_EQ(run({"--json", "--jsonl", "lookup"}),
              (Outcome{2, "", "refdoc: --json and --jsonl cannot be combined; see refdoc --help\n"}));
}

} // namespace
} // namespace refdoc_tests
