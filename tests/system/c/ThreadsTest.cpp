// Retrievals of the C interface beside changes of its settings.

#include "tests/support/ResourceText.hpp"
#include "tests/system/c/CInterfaceTest.hpp"

#include <array>
#include <barrier>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace docparser_tests {
namespace {

constexpr int kRounds = 100;

class CThreadsTest : public CInterfaceTest {
protected:
    CThreadsTest() {
        for (const std::string name : {"first", "second"}) {
            const std::string catalog = name + "/help/docCatalog/";
            folder.write(catalog + "referenceapi/P.json", resourceText(name, {{"a.html", name}}));
            folder.write(catalog + "referenceapi/P_de.json",
                         resourceText(name, {{"b.html", name}}));
            folder.write(catalog + "referenceapi_lookup/P.json",
                         ResourceText(name).add(lookupItem("n", "a.html", name)).str());
        }
        EXPECT_EQ(docparser_set_install_folder(path("first").c_str()), DOCPARSER_OK);
    }

    void selectInstallations() const {
        for (const char* name : {"first", "second"})
            EXPECT_EQ(docparser_set_install_folder(path(name).c_str()), DOCPARSER_OK);
    }

    void setRoots() const {
        for (const char* name : {"first/help", "second/help"})
            EXPECT_EQ(docparser_set_root(path(name).c_str()), DOCPARSER_OK);
        EXPECT_EQ(docparser_set_support_folder(path("shelf").c_str()), DOCPARSER_OK);
    }

    static void setLanguages() {
        for (const char* language : {"de", "en"})
            EXPECT_EQ(docparser_set_language(language, nullptr, 0), DOCPARSER_OK);
    }

    // The sections of a document, which must be those of one root.
    static void expectOneRoot(const boost::json::value& sections) {
        EXPECT_EQ(sections.as_object().size(), 1U) << sections;
    }

    static void readProduct() {
        const CAnswer answer = productOf("P");
        ASSERT_EQ(answer.status, DOCPARSER_OK) << docparser_last_error();
        expectOneRoot(answer.result->at("resources"));
    }

    static void readIndex() {
        const CAnswer answer = index();
        ASSERT_EQ(answer.status, DOCPARSER_OK) << docparser_last_error();
        expectOneRoot(answer.result->at("notInstalled"));
    }

    static void failToRead() {
        EXPECT_EQ(productOf("\xFF").status, DOCPARSER_INVALID_ARGUMENT);
        EXPECT_STREQ(docparser_last_error(), "product is not well-formed UTF-8");
    }
};

TEST_F(CThreadsTest, EachCallSeesOneRootWhileSettingsChange) {
    const std::array<std::function<void()>, 6> steps{[this] { selectInstallations(); },
                                                     [this] { setRoots(); },
                                                     setLanguages,
                                                     readProduct,
                                                     readIndex,
                                                     failToRead};
    std::barrier start(static_cast<std::ptrdiff_t>(steps.size()));
    std::vector<std::thread> threads;
    for (const auto& step : steps) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int round = 0; round < kRounds && !HasFailure(); ++round)
                step();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
} // namespace docparser_tests
