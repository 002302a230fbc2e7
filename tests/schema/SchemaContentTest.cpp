// Tests what editors show from the schemas: descriptions, examples and the words of enumerations.

#include "docparser/parsing/Enumerations.hpp"
#include "tests/support/Schema.hpp"
#include "tests/unit/docparser/retrieval/FullFormat.hpp"
#include "tests/unit/docparser/retrieval/LookupFormat.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <stdexcept>

namespace docparser_tests {
namespace {

namespace json = boost::json;
using namespace reference::property;

// Receives a key of a schema and the subschema of its value.
using VisitKey = std::function<void(const std::string& key, const json::object& described)>;

const json::object& resolved(const json::value& schema, const json::value& part) {
    const json::object& described = part.as_object();
    const json::value* reference = described.if_contains("$ref");
    if (!reference)
        return described;
    return schema.at_pointer(reference->as_string().subview(1)).as_object();
}

void forEachKeyBelow(const json::value& schema, const json::value& part, const VisitKey& visit) {
    if (const json::array* array = part.if_array()) {
        for (const json::value& element : *array)
            forEachKeyBelow(schema, element, visit);
    }
    if (const json::object* object = part.if_object()) {
        for (const auto& [name, value] : *object) {
            if (name == "properties") {
                for (const auto& [key, described] : value.as_object())
                    visit(std::string(key), resolved(schema, described));
            }
            if (name != "examples")
                forEachKeyBelow(schema, value, visit);
        }
    }
}

void forEachKey(const Schema& schema, const VisitKey& visit) {
    forEachKeyBelow(schema.text(), schema.text(), visit);
}

void addKeysOf(const json::value& document, std::set<std::string>& keys) {
    if (const json::array* array = document.if_array()) {
        for (const json::value& element : *array)
            addKeysOf(element, keys);
    }
    if (const json::object* object = document.if_object()) {
        for (const auto& [key, value] : *object) {
            keys.insert(std::string(key));
            addKeysOf(value, keys);
        }
    }
}

class SchemaContent : public testing::TestWithParam<const char*> {
protected:
    const Schema schema_{GetParam()};
};

TEST_P(SchemaContent, EveryKeyHasADescription) {
    std::size_t count = 0;
    forEachKey(schema_, [&](const std::string& key, const json::object& described) {
        const json::value* description = described.if_contains("description");
        EXPECT_TRUE(description && !description->as_string().empty()) << key;
        ++count;
    });
    EXPECT_GT(count, 5U);
}

TEST_P(SchemaContent, EveryStringHasStringExamples) {
    forEachKey(schema_, [&](const std::string& key, const json::object& described) {
        const json::value* type = described.if_contains("type");
        if (!type || *type != "string")
            return;
        const json::value* examples = described.if_contains("examples");
        ASSERT_TRUE(examples && !examples->as_array().empty()) << key;
        for (const json::value& example : examples->as_array())
            EXPECT_TRUE(example.is_string()) << key;
    });
}

TEST_P(SchemaContent, NamesTheDraftThatTheTestsValidateAgainst) {
    EXPECT_EQ(schema_.text().at("$schema"), "http://json-schema.org/draft-07/schema#");
}

INSTANTIATE_TEST_SUITE_P(Files, SchemaContent,
                         testing::Values("referenceapi.schema.json",
                                         "referenceapi_lookup.schema.json",
                                         "installation.schema.json"),
                         [](const auto& test) {
                             const std::string name = test.param;
                             return name.substr(0, name.find('.'));
                         });

template <class Format>
void expectTheKeysOf(const char* file) {
    std::set<std::string> described;
    forEachKey(Schema(file),
               [&](const std::string& key, const json::object&) { described.insert(key); });
    described.erase("$schema"); // only for editors
    std::set<std::string> read;
    addKeysOf(Format::sample(), read);
    EXPECT_EQ(described, read);
}

TEST(SchemaKeys, AreTheKeysOfTheFormats) {
    expectTheKeysOf<FullFormat>("referenceapi.schema.json");
    expectTheKeysOf<LookupFormat>("referenceapi_lookup.schema.json");
}

// The words of an enumeration, ordered by their numbers.
template <class Enumeration>
std::vector<std::string> wordsOf() {
    std::vector<std::string> words;
    try {
        for (int number = 0;; ++number) {
            const auto value = static_cast<typename Enumeration::Value>(number);
            words.emplace_back(Enumeration::enumToString(value));
        }
    } catch (const std::invalid_argument&) {
        return words;
    }
}

template <class Enumeration>
void expectTheWordsOf(const char* file, const std::string& definition) {
    const Schema schema(file);
    const json::value& described = schema.text().at_pointer("/definitions/" + definition);
    std::vector<std::string> words;
    for (const json::value& word : described.at_pointer("/anyOf/0/enum").as_array())
        words.emplace_back(word.as_string());
    EXPECT_EQ(words, wordsOf<Enumeration>()) << file << ": " << definition;
    EXPECT_EQ(described.at("default").as_string(),
              Enumeration::enumToString(Enumeration::getDefaultValue()));
}

TEST(SchemaWords, AreTheWordsOfTheEnumerations) {
    for (const char* file : {"referenceapi.schema.json", "referenceapi_lookup.schema.json"}) {
        expectTheWordsOf<RefEntityType>(file, "refEntityType");
        expectTheWordsOf<FunctionType>(file, "functionType");
    }
    expectTheWordsOf<SyntaxType>("referenceapi.schema.json", "syntaxType");
    expectTheWordsOf<DeprecationStatus>("referenceapi.schema.json", "deprecationStatus");
}

} // namespace
} // namespace docparser_tests
