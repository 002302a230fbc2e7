#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/check/rules/SchemaRules.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <set>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using refdoc::check::Finding;
using refdoc::check::Schema;
using refdoc::check::SchemaMember;
using refdoc::check::SchemaNode;

// Makes a document with all keys of a schema. Each string is "<its pointer>é", so that the
// library's result shows how it was read.
class FullDocument {
public:
    // \param word  the value of the enumerations that have this word
    explicit FullDocument(std::string word) : word_(std::move(word)) {}

    json::value make(const SchemaNode& node, const std::string& pointer) {
        if (!node.words.empty())
            return std::ranges::find(node.words, word_) == node.words.end()
                       ? json::value(node.defaultWord)
                       : json::value(word_);
        if (node.type == "array")
            return makeArray(node, pointer);
        if (node.type == "object")
            return makeObject(node.members, pointer);
        pointers_.insert(pointer);
        return json::value('<' + pointer + ">é");
    }

    // The pointers of all strings.
    const std::set<std::string>& pointers() const { return pointers_; }

private:
    json::value makeArray(const SchemaNode& node, const std::string& pointer) {
        json::array elements{make(*node.items, pointer + "/0")};
        if (const SchemaNode* other = node.items->alternative)
            elements.push_back(makeObject(other->members, pointer + "/1"));
        return elements;
    }

    json::value makeObject(const std::vector<SchemaMember>& members, const std::string& pointer) {
        json::object object;
        for (const SchemaMember& member : members) {
            if (!member.key.starts_with('$') && !member.node->countsByPresence)
                object[member.key] = make(*member.node, pointer + '/' + member.key);
        }
        return object;
    }

    std::string word_;
    std::set<std::string> pointers_;
};

// Returns the pointers of the strings that are read as ASCII according to the schema.
std::set<std::string> warnedOf(const Schema& schema, const json::value& document) {
    std::vector<Finding> findings;
    addSchemaFindings(schema, document, findings);
    std::set<std::string> pointers;
    for (const Finding& finding : findings) {
        // The document has its pointers in place of a version and a help location.
        if (finding.rule->name == "unknown-version" || finding.rule->name == "help-location")
            continue;
        EXPECT_EQ(finding.rule->name, "not-ascii") << finding.message;
        pointers.insert(*finding.location.pointer);
    }
    return pointers;
}

// Returns the pointers of the strings whose "é" the library has garbled.
std::set<std::string> garbledIn(const std::string& output, const std::set<std::string>& pointers) {
    std::set<std::string> garbled;
    for (const std::string& pointer : pointers) {
        const bool isGarbled = output.find('<' + pointer + ">Ã©") != output.npos;
        const bool isWhole = output.find('<' + pointer + ">é") != output.npos;
        EXPECT_TRUE(isGarbled || isWhole) << pointer << " is not in the output";
        if (isGarbled)
            garbled.insert(pointer);
    }
    return garbled;
}

class ReadingModeTest : public CheckTest, public testing::WithParamInterface<const char*> {};

TEST_P(ReadingModeTest, FullResourcesAreReadAsInSchema) {
    FullDocument full(GetParam());
    const json::value document = full.make(refdoc::check::resourceSchema().root(), "");
    addResource("P", json::serialize(document));
    const Outcome outcome = run({"show", "P", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(warnedOf(refdoc::check::resourceSchema(), document),
              garbledIn(outcome.out, full.pointers()));
}

TEST_P(ReadingModeTest, LookupFilesAreReadAsInSchema) {
    FullDocument full(GetParam());
    const json::value document = full.make(refdoc::check::lookupSchema().root(), "");
    addLookup("P", json::serialize(document));
    const Outcome outcome = run({"lookup", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(warnedOf(refdoc::check::lookupSchema(), document),
              garbledIn(outcome.out, full.pointers()));
}

INSTANTIATE_TEST_SUITE_P(Words, ReadingModeTest, testing::Values("component", "class"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
} // namespace refdoc_tests
