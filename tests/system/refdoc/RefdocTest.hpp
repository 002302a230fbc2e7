#pragma once

#include "tests/support/TemporaryFolder.hpp"
#include "tests/system/refdoc/ToolProcess.hpp"

#include <boost/json/value.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc_tests {

/// A test of the program on an install folder of its own, which is empty at first.
class RefdocTest : public testing::Test {
protected:
    /// Writes a file below the install folder.
    void add(const std::string& path, std::string_view text) const;

    /// Writes a full resource file of the reference root; `name` without ".json".
    void addResource(const std::string& name, std::string_view text) const;
    /// Writes a plain lookup file of the reference root; `name` without ".json".
    void addLookup(const std::string& name, std::string_view text) const;
    void addManifest(std::string_view text) const;

    /// The path of something below the install folder; the folder's own without an argument.
    std::string path(const std::string& below = {}) const;

    /// Runs the program with `--install` and the install folder before the arguments.
    Outcome run(std::vector<std::string> arguments, const Surroundings& surroundings = {}) const;
    /// The same with a terminal of this width as standard output; for POSIX alone.
    Outcome runAtTerminal(std::size_t columns, std::vector<std::string> arguments,
                          const Surroundings& surroundings = {}) const;

private:
    std::vector<std::string> withInstall(std::vector<std::string> arguments) const;

    docparser_tests::TemporaryFolder folder_;
};

/// A JSON section: "HELPFOLDER name", "HELPFOLDER code" and so on, with these items.
/// \param items  JSON text: what stands between the brackets of "refItems"
/// \param more   JSON text: further members of the section, a comma before them
std::string section(const std::string& helpFolder, const std::string& items,
                    const std::string& more = {});

/// The document that the program printed; a failure of the test when it is none.
boost::json::value document(const std::string& text);

/// The documents that the program printed, one on each line.
std::vector<boost::json::value> documents(const std::string& lines);

} // namespace refdoc_tests
