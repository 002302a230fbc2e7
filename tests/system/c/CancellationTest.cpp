// Threads that are cancelled during a call of the C interface.

#include "tests/support/Cancellation.hpp"

#include "tests/support/LogCallback.hpp"
#include "tests/support/OpenDescriptors.hpp"
#include "tests/system/c/CInterfaceTest.hpp"

namespace docparser_tests {
namespace {

class CCancellationTest : public CInterfaceTest {
protected:
    CCancellationTest() {
        addProduct("help/docCatalog/referenceapi/P.json");
        addProduct("help/docCatalog/referenceapi/P_de.json");
        EXPECT_EQ(docparser_set_language("de", nullptr, 0), DOCPARSER_OK);
    }
};

// The library writes a log line before it reads a file, and a log sink is a cancellation point
// here.
TEST_F(CCancellationTest, CancelledThreadIsUnwoundAtEveryFile) {
    const auto openBefore = openDescriptors();
    for (const int file : {0, 1}) {
        SCOPED_TRACE(file);
        {
            int left = file;
            const LogCallback log([&](const std::string&) {
                if (left-- == 0) {
                    cancelThisThread();
                    pthread_testcancel();
                }
            });
            EXPECT_TRUE(isCancelledIn([] { productOf("P"); }));
        }
        EXPECT_EQ(openDescriptors(), openBefore);
        EXPECT_EQ(purposeOf("P"), "help/docCatalog/referenceapi/P_de.json");
    }
}

} // namespace
} // namespace docparser_tests
