#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/serialize.hpp>

namespace refdoc_tests {
namespace {

class LookupJsonTest : public RefdocTest {
protected:
    LookupJsonTest() {
        addManifest(R"({"topLevelProducts": [{"shortName": "orchard"}]})");
        addLookup("Orchard", R"({"schema": "lookup", "schemaVersion": "2", "productName": "Orchard",
            "baseCode": "OR", "helpFolder": "orchard", "helpLocation": "help/or", "refItems": [
            {"name": "graft", "href": "graft.html", "refpurpose": "Join", "type": "method",
             "fcntype": "static", "deprecated": 0},
            {"name": "graft", "href": "other.html", "refpurpose": "Other"},
            {"name": "prune", "href": "prune.html", "refpurpose": "Cut"}]})");
        addLookup(
            "Cellar",
            section("cellar", R"({"name": "press", "href": "p.html", "refpurpose": "Press"})"));
    }

    static constexpr const char* kOrchardHeader = R"({"schema": "lookup", "schemaVersion": "2",
        "productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard",
        "helpLocation": "help/or", "product": "Orchard"})";
    static constexpr const char* kGraft = R"("graft": [
        {"name": "graft", "entityType": "method", "refPurpose": "Join", "deprecated": true,
         "href": "graft.html", "functionType": "static"},
        {"name": "graft", "entityType": "function", "refPurpose": "Other", "deprecated": false,
         "href": "other.html", "functionType": "function"}])";
    static constexpr const char* kPrune = R"("prune": [
        {"name": "prune", "entityType": "function", "refPurpose": "Cut", "deprecated": false,
         "href": "prune.html", "functionType": "function"}])";
    static constexpr const char* kCellar = R"("cellar": {
        "header": {"schema": "", "schemaVersion": "", "productName": "cellar name",
                   "baseCode": "cellar code", "helpFolder": "cellar",
                   "helpLocation": "cellar/help", "product": "Cellar"},
        "items": {"press": [
            {"name": "press", "entityType": "function", "refPurpose": "Press", "deprecated": false,
             "href": "p.html", "functionType": "function"}]}})";

    static std::string orchard(const std::string& items) {
        return std::string(R"("orchard": {"header": )") + kOrchardHeader + R"(, "items": {)" +
               items + "}}";
    }

    static void expectDocument(const std::string& printed, const std::string& installed,
                               const std::string& notInstalled) {
        EXPECT_EQ(
            boost::json::serialize(document(printed)),
            boost::json::serialize(document(R"({"installed": {)" + installed +
                                            R"(}, "notInstalled": {)" + notInstalled + "}}")));
    }
};

TEST_F(LookupJsonTest, PrintsTheWholeIndex) {
    const Outcome outcome = run({"--json", "lookup"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    expectDocument(outcome.out, orchard(std::string(kGraft) + ", " + kPrune), kCellar);
}

TEST_F(LookupJsonTest, PrintsOnlyTheGivenNamesAndTheirSections) {
    const Outcome one = run({"--json", "lookup", "graft"});
    EXPECT_EQ(one.status, 0);
    expectDocument(one.out, orchard(kGraft), "");
    const Outcome both = run({"--json", "lookup", "prune", "press"});
    EXPECT_EQ(both.status, 0);
    expectDocument(both.out, orchard(kPrune), kCellar);
}

TEST_F(LookupJsonTest, OmitsUnknownNamesAndReturns1) {
    const Outcome some = run({"--json", "lookup", "graft", "pres"});
    EXPECT_EQ(some.status, 1);
    EXPECT_EQ(some.err, "refdoc: no entry \"pres\" in the lookup index; did you mean \"press\"?\n");
    expectDocument(some.out, orchard(kGraft), "");
    const Outcome none = run({"--json", "lookup", "zzz"});
    EXPECT_EQ(none.status, 1);
    expectDocument(none.out, "", "");
}

} // namespace
} // namespace refdoc_tests
