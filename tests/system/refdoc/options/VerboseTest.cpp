#include "tests/support/NativeText.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

using docparser_tests::native;

class VerboseTest : public RefdocTest {
protected:
    std::string reading(const std::string& file) const {
        return "[16] Reading file: " + path("help/docCatalog/" + file) + "\n";
    }
};

TEST_F(VerboseTest, WritesLibraryRecordsToStderr) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    const Outcome quiet = run({"lookup"});
    EXPECT_EQ(run({"lookup", "--verbose"}),
              (Outcome{0, quiet.out, reading("referenceapi_lookup/P.json")}));
    EXPECT_EQ(quiet.err, "");
}

TEST_F(VerboseTest, MissingProductIsLoggedAtBothSeverities) {
    const Outcome outcome = run({"--verbose", "--lang", "de", "show", "P"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(
        outcome.err,
        testing::StartsWith(
            reading("referenceapi/P.json") + reading("referenceapi/P_de.json") +
            native("[16] Reading file: (no support packages)␀/P.json\n"
                   "[16] Reading file: (no support packages)␀/P_de.json\n") +
            "[512] DocParserException thrown in getResourceFile for product: P\nrefdoc: no "));
}

TEST_F(VerboseTest, RecordsStayOnOneLineWithoutControlCharacters) {
    const Outcome outcome = run({"--verbose", "show", "a\n\x1b[2J"});
    EXPECT_THAT(outcome.err, testing::StartsWith(reading("referenceapi/a␊␛[2J.json")));
    EXPECT_EQ(outcome.err.find('\x1b'), outcome.err.npos);
}

} // namespace
} // namespace refdoc_tests
