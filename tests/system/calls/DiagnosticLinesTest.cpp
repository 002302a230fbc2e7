#include "docparser/DocParserException.hpp"
#include "tests/system/SystemTest.hpp"

#include <boost/log/core/core.hpp>
#include <boost/log/expressions.hpp>

namespace docparser_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kTrace = foundation::log::kSeverityTrace;
constexpr int kProblem = foundation::log::kSeverityProblem;

class DiagnosticLinesTest : public SystemTest {
protected:
    static LogLine reading(const std::string& path) {
        return {"referenceApi::docparser", kTrace, "Reading file: " + path};
    }
    static LogLine problem(const std::string& text) {
        return {"referenceApi::docparser", kProblem, text};
    }
    static LogLine notFound(const std::string& product) {
        return problem("DocParserException thrown in getResourceFile for product: " + product);
    }
    // Returns the lines that a request for a product logs with a mask.
    static std::vector<LogLine> linesOf(const std::u16string& product, std::uint32_t mask = 528) {
        const LogCapture log(mask);
        findResources(product);
        return log.lines();
    }

    const std::string text = resourceText("orchard", {{"graft.html", "Join"}});
};

TEST_F(DiagnosticLinesTest, EnglishProductReadsOneFile) {
    addApi("Orchard.json", text);
    EXPECT_THAT(linesOf(u"Orchard"), ElementsAre(reading(apiPath("Orchard.json"))));
}

TEST_F(DiagnosticLinesTest, TranslationIsReadAfterTheEnglishFile) {
    setLanguage(u"de");
    addApi("Orchard.json", text);
    addApi("Orchard_de.json", text);
    EXPECT_THAT(linesOf(u"Orchard"),
                ElementsAre(reading(apiPath("Orchard.json")), reading(apiPath("Orchard_de.json"))));
}

TEST_F(DiagnosticLinesTest, MissingTranslationLogsOnlyTheAttempt) {
    setLanguage(u"de");
    addApi("Orchard.json", text);
    EXPECT_THAT(linesOf(u"Orchard"),
                ElementsAre(reading(apiPath("Orchard.json")), reading(apiPath("Orchard_de.json"))));
}

TEST_F(DiagnosticLinesTest, ProductInTheSupportFolderIsFirstLookedForInTheRoot) {
    setLanguage(u"de");
    addSupport("Orchard.json", text);
    EXPECT_THAT(linesOf(u"Orchard"),
                ElementsAre(reading(apiPath("Orchard.json")), reading(apiPath("Orchard_de.json")),
                            reading(supportPath("Orchard.json")),
                            reading(supportPath("Orchard_de.json"))));
}

TEST_F(DiagnosticLinesTest, MissingProductLogsTheExceptionLast) {
    setLanguage(u"de");
    EXPECT_THAT(linesOf(u"Orchard"),
                ElementsAre(reading(apiPath("Orchard.json")), reading(apiPath("Orchard_de.json")),
                            reading(supportPath("Orchard.json")),
                            reading(supportPath("Orchard_de.json")), notFound("Orchard")));
}

TEST_F(DiagnosticLinesTest, Mask16ShowsOnlyReading) {
    EXPECT_THAT(linesOf(u"Orchard", 16), ElementsAre(reading(apiPath("Orchard.json")),
                                                     reading(supportPath("Orchard.json"))));
}

TEST_F(DiagnosticLinesTest, Mask512ShowsOnlyTheException) {
    EXPECT_THAT(linesOf(u"Orchard", 512), ElementsAre(notFound("Orchard")));
}

TEST_F(DiagnosticLinesTest, Mask0ShowsNothing) {
    EXPECT_THAT(linesOf(u"Orchard", 0), IsEmpty());
}

TEST_F(DiagnosticLinesTest, OtherBitsOfTheMaskShowNothing) {
    EXPECT_THAT(linesOf(u"Orchard", ~std::uint32_t{528}), IsEmpty());
}

TEST_F(DiagnosticLinesTest, LogsTheExceptionBeforeThrowingIt) {
    const LogCapture log(512);
    std::vector<LogLine> seenByHandler;
    try {
        DocResourceParser::getResourceFile(u"Orchard");
    } catch (const reference::docparser::DocParserException&) {
        seenByHandler = log.lines();
    }
    EXPECT_THAT(seenByHandler, ElementsAre(notFound("Orchard")));
}

TEST_F(DiagnosticLinesTest, WritesUtf8) {
    EXPECT_THAT(linesOf(u"Obst\u00e4\U0001F34E", 512),
                ElementsAre(notFound("Obst\xC3\xA4\xF0\x9F\x8D\x8E")));
}

TEST_F(DiagnosticLinesTest, WritesUnpairedSurrogatesAsReplacementCharacters) {
    const std::u16string product = {u'a', char16_t(0xD83C), u'b', char16_t(0xDF4E)};
    const std::string shown = "a\xEF\xBF\xBD"
                              "b\xEF\xBF\xBD";
    EXPECT_THAT(linesOf(product),
                ElementsAre(reading(apiPath(shown + ".json")),
                            reading(supportPath(shown + ".json")), notFound(shown)));
}

TEST_F(DiagnosticLinesTest, FileOverTheLimitLogsProblem) {
    addApi("Orchard.json", text);
    platform::setReadLimits({.fileBytes = text.size() - 1});
    EXPECT_THAT(linesOf(u"Orchard"),
                ElementsAre(reading(apiPath("Orchard.json")),
                            problem("Problem reading JSON file: " + apiPath("Orchard.json")),
                            reading(supportPath("Orchard.json")), notFound("Orchard")));
}

TEST_F(DiagnosticLinesTest, LogsFullPathOfLookupFile) {
    addLookup("Orchard.json", ResourceText("orchard").str());
    const LogCapture log(528);
    DocResourceParser::getResourceLookupFiles();
    EXPECT_THAT(log.lines(), ElementsAre(reading(lookupPath("Orchard.json"))));
}

TEST_F(DiagnosticLinesTest, DamagedLookupFileLogsNoLineOfItsOwn) {
    addLookup("Orchard.json", "{");
    const LogCapture log(528);
    DocResourceParser::getResourceLookupFiles();
    EXPECT_THAT(log.lines(), ElementsAre(reading(lookupPath("Orchard.json"))));
}

// Counts how often the core calls its filter. It is not called for lines that the mask rejects.
TEST_F(DiagnosticLinesTest, MaskedLinesNeverReachTheCore) {
    const LogCapture log(0);
    int offered = 0;
    boost::log::core::get()->set_filter([&offered](const boost::log::attribute_value_set&) {
        ++offered;
        return false;
    });
    findResources(u"Orchard");
    EXPECT_EQ(offered, 0);
    foundation::log::setSeverityMask(528);
    findResources(u"Orchard");
    EXPECT_EQ(offered, 3);
    boost::log::core::get()->reset_filter();
    EXPECT_THAT(log.lines(), IsEmpty());
}

} // namespace
} // namespace docparser_tests
