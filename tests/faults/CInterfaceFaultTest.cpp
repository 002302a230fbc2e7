#include "docparser/c/docparser.h"
#include "docparser/json/ProductDocument.hpp"
#include "platform/HostServices.hpp"
#include "tests/faults/FaultTest.hpp"

#include <boost/json/serialize.hpp>

#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace docparser_tests {
namespace {

using testing::AnyOf;
using testing::Contains;

using OwnedText = std::unique_ptr<char, decltype(&docparser_free)>;

// What a function returned. Copies nothing, because it is made under faults.
struct Answer {
    Answer(docparser_status endedWith, char* ownedResult, char* ownedAccount)
        : status(endedWith),
          result(ownedResult, &docparser_free),
          account(ownedAccount, &docparser_free) {}

    docparser_status status;
    OwnedText result;
    OwnedText account;

    static std::string textOf(const OwnedText& text) { return text ? text.get() : "null"; }

    bool operator==(const Answer& other) const {
        return status == other.status && textOf(result) == textOf(other.result) &&
               textOf(account) == textOf(other.account);
    }
    friend void PrintTo(const Answer& answer, std::ostream* stream) {
        *stream << "status " << answer.status << ", " << textOf(answer.result) << ", "
                << textOf(answer.account);
    }
};

Answer readProduct(const char* product) {
    char* records = nullptr;
    char* account = nullptr;
    const docparser_status status = docparser_get_product(product, &records, &account);
    return {status, records, account};
}

Answer readIndex() {
    char* index = nullptr;
    char* account = nullptr;
    const docparser_status status = docparser_get_index(&index, &account);
    return {status, index, account};
}

void expectFailure(const Answer& answer) {
    EXPECT_THAT(answer.status, AnyOf(DOCPARSER_NOT_FOUND, DOCPARSER_OUT_OF_MEMORY));
    EXPECT_FALSE(answer.result);
    EXPECT_STRNE(docparser_last_error(), "");
}

class CInterfaceFaultTest : public FaultTest {
protected:
    // The root, the folder of support packages, and the languages.
    static auto settings() {
        using Tools = DocResourceParser::ParsingTools;
        return std::tuple(DocResourceParser::getReferenceRoots()->root,
                          *DocResourceParser::getSupportPackageRoot(), Tools::getCurrentLocale(),
                          Tools::getSupportedDocLocales());
    }

    void restore() const {
        EXPECT_EQ(docparser_set_install_folder(nullptr), DOCPARSER_OK);
        platform::setHostServices(host);
        reset();
    }

    // Expects that a function changes settings, or reports that memory has run out and changes
    // none.
    void expectAllOrNothing(const std::function<docparser_status()>& change) const {
        decltype(settings()) before;
        Operation<docparser_status> setting =
            operation<docparser_status>(change, [&](const Outcome<docparser_status>& outcome) {
                if (outcome.result == DOCPARSER_OK) {
                    EXPECT_NE(settings(), before);
                } else {
                    EXPECT_EQ(outcome.result, DOCPARSER_OUT_OF_MEMORY);
                    EXPECT_STREQ(docparser_last_error(), "out of memory");
                    EXPECT_EQ(settings(), before);
                }
            });
        setting.prepare = [&] {
            restore();
            before = settings();
        };
        setting.restore = [&] {
            before = {};
            restore();
        };
        EXPECT_GT(failEachAllocation(setting), 3U);
    }
};

TEST_F(CInterfaceFaultTest, RecordsAreThoseThatTheLibraryReadsOrAbsent) {
    std::vector<std::string> allowed;
    for (const Resources& resources : partialResources())
        allowed.push_back(
            boost::json::serialize(reference::json::productDocument(kProduct, resources)));
    const auto reading = operation<Answer>(
        [] { return readProduct("Orchard keeping"); },
        [&](const Outcome<Answer>& outcome) {
            ASSERT_EQ(outcome.ending, Ending::Result);
            if (outcome.result->status == DOCPARSER_OK) {
                EXPECT_THAT(allowed, Contains(Answer::textOf(outcome.result->result)));
                EXPECT_TRUE(outcome.result->account);
            } else {
                expectFailure(*outcome.result);
            }
        });
    EXPECT_GT(failEachAllocation(reading), 200U);
}

TEST_F(CInterfaceFaultTest, IndexIsReadOrAbsent) {
    const auto reading = operation<Answer>([] { return readIndex(); },
                                           [](const Outcome<Answer>& outcome) {
                                               ASSERT_EQ(outcome.ending, Ending::Result);
                                               if (outcome.result->status == DOCPARSER_OK) {
                                                   EXPECT_TRUE(outcome.result->result);
                                                   EXPECT_TRUE(outcome.result->account);
                                               } else {
                                                   expectFailure(*outcome.result);
                                               }
                                           });
    EXPECT_GT(failEachAllocation(reading), 200U);
}

TEST_F(CInterfaceFaultTest, MissingProductIsNeverFound) {
    const auto reading = operation<Answer>([] { return readProduct("No such product"); },
                                           [](const Outcome<Answer>& outcome) {
                                               ASSERT_EQ(outcome.ending, Ending::Result);
                                               expectFailure(*outcome.result);
                                           });
    EXPECT_GT(failEachAllocation(reading), 50U);
}

TEST_F(CInterfaceFaultTest, FailedAllocationLeavesSettingsUnchanged) {
    folder.write("installed/installation.json",
                 R"({"docLanguage": "ja", "supportedDocLanguages": ["en", "ja", "zh_Hant_TW"]})");
    const std::string install = (folder.path() / "installed").string();
    const std::string other = (folder.path() / "another folder").string();
    {
        SCOPED_TRACE("installation");
        expectAllOrNothing([&] { return docparser_set_install_folder(install.c_str()); });
    }
    {
        SCOPED_TRACE("root");
        expectAllOrNothing([&] { return docparser_set_root(other.c_str()); });
    }
    {
        SCOPED_TRACE("support folder");
        expectAllOrNothing([&] { return docparser_set_support_folder(other.c_str()); });
    }
    {
        SCOPED_TRACE("language");
        const std::vector<const char*> supported{"en", "zh_Hant_TW_of_another_place"};
        expectAllOrNothing([&] {
            return docparser_set_language("ja_of_a_long_name", supported.data(), supported.size());
        });
    }
}

} // namespace
} // namespace docparser_tests
