#include "tests/system/refdoc/check/CheckTest.hpp"
#include "tools/refdoc/check/schema/SchemaWalker.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <set>

namespace refdoc_tests {
namespace {

namespace json = boost::json;
using refdoc::check::ContentFinding;
using refdoc::check::RuleId;
using refdoc::check::Schema;
using refdoc::check::SchemaMember;
using refdoc::check::SchemaNode;

// Makes a document with everything that a schema knows. Each text is "<its pointer>é", so that what
// the library makes of it tells how it was read.
class FullDocument {
public:
    // \param word  stands in for the words of enumerations that have it
    explicit FullDocument(std::string word) : word_(std::move(word)) {}

    json::value make(const SchemaNode& node, const std::string& pointer) {
        if (!node.words.empty())
            return std::ranges::find(node.words, word_) == node.words.end()
                       ? json::value(node.defaultWord)
                       : json::value(word_);
        if (node.kind == "array")
            return makeArray(node, pointer);
        if (node.kind == "object")
            return makeObject(node.members, pointer);
        pointers_.insert(pointer);
        return json::value('<' + pointer + ">é");
    }

    // The pointers of all texts.
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

// The texts that the schema says are read as ASCII.
std::set<std::string> warnedOf(const Schema& schema, const json::value& document) {
    std::set<std::string> pointers;
    for (const ContentFinding& finding : walkDocument(schema, document)) {
        EXPECT_EQ(finding.rule, RuleId::NotAscii) << finding.pointer << ' ' << finding.message;
        pointers.insert(finding.pointer);
    }
    return pointers;
}

// The texts whose "é" the library has garbled.
std::set<std::string> garbledIn(const std::string& output, const std::set<std::string>& pointers) {
    std::set<std::string> garbled;
    for (const std::string& pointer : pointers) {
        const bool isGarbled = output.find('<' + pointer + ">Ã©") != output.npos;
        const bool isWhole = output.find('<' + pointer + ">é") != output.npos;
        // Only "schema" and the like are read and shown nowhere else than in the header.
        EXPECT_TRUE(isGarbled || isWhole) << pointer << " is not in the output";
        if (isGarbled)
            garbled.insert(pointer);
    }
    return garbled;
}

class ReadingModeTest : public CheckTest, public testing::WithParamInterface<const char*> {};

TEST_P(ReadingModeTest, FullResourcesAreReadAsTheSchemaSays) {
    FullDocument full(GetParam());
    const json::value document = full.make(refdoc::check::resourceSchema().root(), "");
    addResource("P", json::serialize(document));
    const Outcome outcome = run({"show", "P", "--json"});
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(warnedOf(refdoc::check::resourceSchema(), document),
              garbledIn(outcome.out, full.pointers()));
}

TEST_P(ReadingModeTest, LookupFilesAreReadAsTheSchemaSays) {
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
