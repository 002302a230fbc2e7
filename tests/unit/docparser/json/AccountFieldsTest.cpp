#include "docparser/json/AccountFields.hpp"

#include "docparser/json/ToJson.hpp"

#include <boost/json/serialize.hpp>
#include <gtest/gtest.h>

namespace docparser_tests {
namespace {

using namespace reference::docparser;
using reference::json::toJson;

TEST(AccountFieldsTest, AccountHasEveryFieldUnderItsName) {
    const RecordAccount record{.name = u"smooth",
                               .href = u"ref/smooth.html",
                               .fate = RecordFate::DroppedHref,
                               .file = 0,
                               .winner = 1};
    const SectionAccount section{.key = u"orchard",
                                 .pointer = "/supportPackages/0",
                                 .fate = SectionFate::Overlay,
                                 .isInstalled = true,
                                 .other = 1,
                                 .records = {record}};
    const FileAccount file{.role = FileRole::Lookup,
                           .path = u"help/Größe.zip",
                           .entry = u"P.json",
                           .isTranslation = true,
                           .fate = Fate::Malformed,
                           .reason = "a string was expected",
                           .pointer = "/refItems/0",
                           .place = TextPlace{.offset = 7, .line = 2, .column = 3},
                           .sections = {section}};
    EXPECT_EQ(boost::json::serialize(toJson(LoadAccount{.files = {file}, .isComplete = false})),
              R"({"files":[{"role":"lookup","path":"help/Größe.zip","entry":"P.json",)"
              R"("isTranslation":true,"fate":"malformed","reason":"a string was expected",)"
              R"("pointer":"/refItems/0","place":{"offset":7,"line":2,"column":3},)"
              R"("sections":[{"key":"orchard","pointer":"/supportPackages/0","fate":"overlay",)"
              R"("isInstalled":true,"other":1,"records":[{"name":"smooth",)"
              R"("href":"ref/smooth.html","fate":"dropped-href","file":0,"winner":1}]}]}],)"
              R"("isComplete":false})");
}

TEST(AccountFieldsTest, UnknownPositionIsNull) {
    EXPECT_TRUE(toJson(FileAccount()).at("place").is_null());
}

} // namespace
} // namespace docparser_tests
