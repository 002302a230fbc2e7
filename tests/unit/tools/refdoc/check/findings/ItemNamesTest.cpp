#include "tools/refdoc/check/findings/ItemNames.hpp"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

#include <string>

namespace refdoc_tests {
namespace {

using refdoc::check::itemNameAt;

const boost::json::value& sampleDocument() {
    static const boost::json::value document = boost::json::parse(R"({
        "helpFolder": "orchard",
        "refItems": [
            {"href": "smooth.html", "packagename": "orchard.signal",
             "refentity": [{"name": "smooth"}, {"name": "smoothed"}]},
            {"href": "graft.html", "refentity": [{"type": "function"}]},
            {"href": "graft.html", "name": "graft"},
            {"refpurpose": "Neither name nor link"},
            {"href": 7, "packagename": 8, "refentity": {"name": "no list"}},
            "no object"],
        "supportPackages": [{"refItems": [{"href": "kit.html", "packagename": "kit"}]}]
    })");
    return document;
}

TEST(ItemNamesTest, NamesTheItemAndThePathWithinIt) {
    const struct {
        const char* pointer;
        const char* name;
    } rows[] = {
        {"/refItems/0", "orchard.signal smooth"},
        {"/refItems/0/inputs/2", "orchard.signal smooth, inputs[2]"},
        {"/refItems/0/inputs/2/namevaluepairs/0/name",
         "orchard.signal smooth, inputs[2].namevaluepairs[0].name"},
        {"/refItems/1/href", "graft.html, href"},
        {"/refItems/2", "graft"},
        {"/supportPackages/0/refItems/0", "kit kit.html"},
        {"/refItems/3/refpurpose", "refItems[3].refpurpose"},
        {"/refItems/4/href", "refItems[4].href"},
        {"/refItems/5", "refItems[5]"},
        {"/refItems/6", "refItems[6]"},
        {"/supportPackages/0/baseCode", "supportPackages[0].baseCode"},
        {"/refItems", "refItems"},
        {"/helpFolder", "helpFolder"},
        {"/a~1b/~0c/", "a/b.~c."},
        {"", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(itemNameAt(sampleDocument(), row.pointer), row.name) << row.pointer;
}

} // namespace
} // namespace refdoc_tests
