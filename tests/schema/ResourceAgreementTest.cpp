// Compares the schemas of both resource formats with the library.

#include "docparser/DocParserException.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "tests/schema/Agreement.hpp"
#include "tests/schema/DamagedDocuments.hpp"
#include "tests/support/JsonValues.hpp"
#include "tests/unit/docparser/retrieval/FullFormat.hpp"
#include "tests/unit/docparser/retrieval/LookupFormat.hpp"

#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

using reference::docparser::DocParserException;
using reference::docparser::DocResourceParser;
using reference::docparser::Fate;
using reference::docparser::LoadAccount;

struct FullFile {
    using Format = FullFormat;
    static constexpr const char* kSchema = "referenceapi.schema.json";
    static constexpr const char* kName = "docCatalog/referenceapi/X.json";

    static bool isRead() {
        try {
            DocResourceParser::getResourceFile(u"X");
            return true;
        } catch (const DocParserException&) {
            return false;
        }
    }
};

struct LookupFile {
    using Format = LookupFormat;
    static constexpr const char* kSchema = "referenceapi_lookup.schema.json";
    static constexpr const char* kName = "docCatalog/referenceapi_lookup/X.json";

    // A file that is read contributes at least its main section.
    static bool isRead() {
        const auto results = DocResourceParser::getResourceLookupFiles();
        return !results.installed.empty() || !results.notInstalled.empty();
    }
};

template <class File>
class ResourceAgreement : public testing::Test {
public:
    ResourceAgreement() {
        DocResourceParser::setReferenceRoot(root_.u16());
        DocResourceParser::setSupportPackageRoot(root_.u16() + u"/none");
    }
    ~ResourceAgreement() override { DocResourceParser::restoreDefaultSettings(); }

protected:
    using Format = typename File::Format;

    // Whether the library reads the text. Its account must agree.
    bool isRead(const std::string& text) const {
        writeAnew(root_, File::kName, text);
        LoadAccount account;
        const LoadAccount::Scope scope(account);
        const bool isRead = File::isRead();
        EXPECT_EQ(account.files.front().fate, isRead ? Fate::Used : Fate::Malformed) << text;
        return isRead;
    }

    const TemporaryFolder root_;
    Agreement agreement_{File::kSchema, [this](const std::string& text) { return isRead(text); }};
};

using Files = testing::Types<FullFile, LookupFile>;
TYPED_TEST_SUITE(ResourceAgreement, Files);

TYPED_TEST(ResourceAgreement, SchemaAndLibraryAgreeOnEveryDocumentWithOneDamage) {
    forEachDamage(TestFixture::Format::sample(), [this](const auto& document, const auto& change) {
        this->agreement_.check(document, change);
    });
    this->agreement_.expectBothVerdicts(100);
}

TYPED_TEST(ResourceAgreement, SchemaAndLibraryAgreeOnIgnoredKeys) {
    for (const std::string& pointer : TestFixture::Format::unread()) {
        for (const auto& [value, type] : everyType()) {
            boost::json::value document = TestFixture::Format::sample();
            putIn(document, pointer, value);
            this->agreement_.check(document, std::string(pointer).append(" is ").append(type));
        }
    }
}

TYPED_TEST(ResourceAgreement, SchemaAndLibraryAgreeOnCombinationsOfDamages) {
    std::mt19937 random(20240611);
    const boost::json::value good = TestFixture::Format::sample();
    for (int round = 0; round < 4000; ++round)
        this->agreement_.check(damagedAtRandom(good, random), "round " + std::to_string(round));
    this->agreement_.expectBothVerdicts(400);
}

} // namespace
} // namespace docparser_tests
