// Failures of the C interface: the status, the last error, and what the caller receives.

#include "platform/except/IException.hpp"
#include "tests/system/FakeHost.hpp"
#include "tests/system/c/CInterfaceTest.hpp"

#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

using testing::EndsWith;
using testing::StartsWith;

constexpr const char* kIllFormed = "P\xE3\x41";

class CFailureTest : public CInterfaceTest {
protected:
    CFailureTest() { addProduct("help/docCatalog/referenceapi/P.json"); }

    // The call fails, names the argument, and the settings stay.
    static void expectInvalid(docparser_status status, const std::string& reason) {
        EXPECT_EQ(status, DOCPARSER_INVALID_ARGUMENT);
        EXPECT_EQ(docparser_last_error(), reason);
        EXPECT_EQ(purposeOf("P"), "help/docCatalog/referenceapi/P.json");
    }
};

TEST_F(CFailureTest, NullPointersAreInvalid) {
    expectInvalid(productOf(nullptr).status, "product must not be null");
    char* account = nullptr;
    expectInvalid(docparser_get_product("P", nullptr, &account), "records must not be null");
    expectInvalid(docparser_get_index(nullptr, &account), "index must not be null");
    const std::array<const char*, 3> languages{"en", nullptr, "de"};
    expectInvalid(docparser_set_language("de", languages.data(), languages.size()),
                  "supported[1] must not be null");
    EXPECT_EQ(account, nullptr);
}

TEST_F(CFailureTest, IllFormedUtf8IsInvalid) {
    expectInvalid(productOf(kIllFormed).status, "product is not well-formed UTF-8");
    expectInvalid(docparser_set_install_folder(kIllFormed), "folder is not well-formed UTF-8");
    expectInvalid(docparser_set_root(kIllFormed), "folder is not well-formed UTF-8");
    expectInvalid(docparser_set_support_folder(kIllFormed), "folder is not well-formed UTF-8");
    expectInvalid(docparser_set_language(kIllFormed, nullptr, 0),
                  "current is not well-formed UTF-8");
    const std::array<const char*, 2> languages{"de", kIllFormed};
    expectInvalid(docparser_set_language("de", languages.data(), languages.size()),
                  "supported[1] is not well-formed UTF-8");
}

TEST_F(CFailureTest, InvalidCallReturnsNeitherResultNorAccount) {
    const CAnswer answer = productOf(kIllFormed);
    EXPECT_FALSE(answer.result);
    EXPECT_FALSE(answer.account);
}

TEST_F(CFailureTest, AccountOfMissingProductListsTheFilesThatWereTried) {
    folder.write("help/docCatalog/referenceapi/Vine.json", "{");
    const CAnswer answer = productOf("Vine");
    EXPECT_EQ(answer.status, DOCPARSER_NOT_FOUND);
    EXPECT_STREQ(docparser_last_error(), "no usable resource file of the product Vine");
    EXPECT_FALSE(answer.result);
    const auto& files = answer.account->at("files").as_array();
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].at("fate"), "malformed");
    EXPECT_EQ(files[0].at_pointer("/place/line"), 1);
    EXPECT_EQ(files[1].at("fate"), "missing");
    EXPECT_EQ(answer.account->at("isComplete"), true);
}

TEST_F(CFailureTest, AccountNeedNotBeReceived) {
    char* records = nullptr;
    EXPECT_EQ(docparser_get_product("P", &records, nullptr), DOCPARSER_OK);
    EXPECT_NE(records, nullptr);
    docparser_free(records);
    EXPECT_EQ(docparser_get_product("Vine", &records, nullptr), DOCPARSER_NOT_FOUND);
    EXPECT_EQ(records, nullptr);
    char* index = nullptr;
    EXPECT_EQ(docparser_get_index(&index, nullptr), DOCPARSER_OK);
    EXPECT_STREQ(index, R"({"installed":{},"notInstalled":{}})");
    docparser_free(index);
}

TEST_F(CFailureTest, OnlyTheNextCallChangesTheLastError) {
    EXPECT_EQ(productOf("Vine").status, DOCPARSER_NOT_FOUND);
    docparser_free(nullptr);
    EXPECT_STREQ(docparser_version(), DOCPARSER_VERSION);
    EXPECT_STRNE(docparser_last_error(), "");
    EXPECT_EQ(productOf("P").status, DOCPARSER_OK);
    EXPECT_STREQ(docparser_last_error(), "");
}

TEST_F(CFailureTest, EachThreadHasItsOwnLastError) {
    EXPECT_EQ(productOf("Vine").status, DOCPARSER_NOT_FOUND);
    std::thread([] {
        EXPECT_STREQ(docparser_last_error(), "");
        EXPECT_EQ(docparser_set_root(kIllFormed), DOCPARSER_INVALID_ARGUMENT);
    }).join();
    EXPECT_STREQ(docparser_last_error(), "no usable resource file of the product Vine");
}

TEST_F(CFailureTest, LongReasonIsCutBetweenCharacters) {
    std::string product;
    for (int i = 0; i < 1000; ++i)
        product += "木";
    EXPECT_EQ(productOf(product.c_str()).status, DOCPARSER_NOT_FOUND);
    const std::string reason = docparser_last_error();
    EXPECT_GT(reason.size(), 2044U);
    EXPECT_LE(reason.size(), 2047U);
    EXPECT_THAT(reason, StartsWith("no usable resource file of the product 木木"));
    EXPECT_THAT(reason, EndsWith("木木"));
}

class LicenceError final : public foundation::core::except::IInternalException {
public:
    const char* what() const noexcept override { return "no licence"; }
    const boost::exception_detail::clone_base* clone() const override {
        return new LicenceError(*this);
    }
    void rethrow() const override { throw *this; }
};

TEST_F(CFailureTest, ExceptionsOfAHostBecomeStatuses) {
    struct Row {
        std::function<void()> fail;
        docparser_status status;
        const char* reason;
    };
    const std::vector<Row> rows{
        {[] { throw std::runtime_error("no language \xFF"); }, DOCPARSER_FAILED,
         "no language \uFFFD"},
        {[] { throw LicenceError(); }, DOCPARSER_FAILED, "no licence"},
        {[] { throw 7; }, DOCPARSER_FAILED, "a service of the host application failed"},
        {[] { throw std::bad_alloc(); }, DOCPARSER_OUT_OF_MEMORY, "out of memory"}};
    for (const Row& row : rows) {
        const auto host = std::make_shared<FakeHost>();
        host->onLanguage = row.fail;
        platform::setHostServices(host);
        for (const CAnswer& answer : {productOf("P"), index()}) {
            EXPECT_EQ(answer.status, row.status) << row.reason;
            EXPECT_STREQ(docparser_last_error(), row.reason);
            EXPECT_FALSE(answer.result);
            EXPECT_FALSE(answer.account);
        }
    }
}

} // namespace
} // namespace docparser_tests
