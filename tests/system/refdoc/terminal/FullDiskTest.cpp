#include "tests/system/refdoc/RefdocTest.hpp"

namespace refdoc_tests {
namespace {

class FullDiskTest : public RefdocTest {};

TEST_F(FullDiskTest, FailsIfOutputCannotBeWritten) {
    addLookup("P", section("p", R"({"name": "a", "href": "a.html", "refpurpose": "b"})"));
    Surroundings fullDisk;
    fullDisk.output = "/dev/full";
    const Outcome expected{3, "",
                           "refdoc: can't write to standard output: No space left on device\n"};
    EXPECT_EQ(run({"lookup"}, fullDisk), expected);
    EXPECT_EQ(run({"lookup", "--json"}, fullDisk), expected);
    EXPECT_EQ(run({"products"}, fullDisk), expected);
    EXPECT_EQ(runProgram({"--help"}, fullDisk), expected);
}

} // namespace
} // namespace refdoc_tests
