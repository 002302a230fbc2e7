#include "tools/refdoc/serve/LivePages.hpp"

#include "docparser/DocResourceParser.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>
#include <string>
#include <system_error>
#include <thread>

namespace refdoc::serve {
namespace {

using reference::docparser::DocResourceParser;
using testing::HasSubstr;

class LivePagesTest : public testing::Test {
protected:
    LivePagesTest() {
        DocResourceParser::setReferenceRoot((folder_.path() / "help").u16string());
        std::filesystem::create_directories(file_.parent_path());
        save("");
    }
    ~LivePagesTest() override { DocResourceParser::restoreDefaultSettings(); }

    // Writes the file of the product at once, as an editor does.
    void save(const std::string& items) const {
        const std::filesystem::path written =
            folder_.write("new.json", R"({"schema": "referenceapi", "schemaVersion": "2.1",
                "productName": "Orchard", "baseCode": "OR", "helpFolder": "orchard",
                "helpLocation": "help/or", "refItems": [)" +
                                          items + "]}");
        std::error_code inUse; // on Windows, a file that is being read cannot be replaced
        std::filesystem::rename(written, file_, inUse);
    }

    docparser_tests::TemporaryFolder folder_;
    const std::filesystem::path file_ =
        folder_.path() / "help/docCatalog/referenceapi/Orchard.json";
};

TEST_F(LivePagesTest, FileThatChangesWhileItIsReadHidesNoLaterVersion) {
    const Options options;
    http::Versions versions;
    Progress progress(/*isShown=*/false);
    LivePages pages(options, versions, progress);
    {
        std::atomic<int> savesLeft = 1000;
        const std::jthread author([&] {
            for (; savesLeft > 0; --savesLeft)
                save(savesLeft % 2 == 0 ? "" : R"({"href": "a", "refpurpose": ""})");
        });
        while (savesLeft > 0)
            EXPECT_NO_THROW(pages.update({file_}));
    }
    save(R"({"href": "graft", "refpurpose": "Join two plants"})");
    pages.update({file_});
    EXPECT_THAT(pages.find("/orchard/index.html").body, HasSubstr("Join two plants"));
}

} // namespace
} // namespace refdoc::serve
