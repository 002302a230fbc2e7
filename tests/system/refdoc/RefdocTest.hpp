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

/// Runs the program on a temporary install folder, which is initially empty.
class RefdocTest : public testing::Test {
protected:
    /// Writes a file below the install folder.
    void add(const std::string& path, std::string_view text) const;

    /// Writes a full resource file of the reference root; `name` without ".json".
    void addResource(const std::string& name, std::string_view text) const;
    /// Writes a plain lookup file of the reference root; `name` without ".json".
    void addLookup(const std::string& name, std::string_view text) const;
    void addManifest(std::string_view text) const;

    /// Returns the path of the install folder or of something below it.
    std::string path(const std::string& below = {}) const;

    /// Runs the program with `--install` and the install folder before the arguments.
    Outcome run(std::vector<std::string> arguments, const Surroundings& surroundings = {}) const;
    /// The same with a terminal of this width as standard output. Only on POSIX.
    Outcome runAtTerminal(std::size_t columns, std::vector<std::string> arguments,
                          const Surroundings& surroundings = {}) const;

private:
    std::vector<std::string> withInstall(std::vector<std::string> arguments) const;

    docparser_tests::TemporaryFolder folder_;
};

/// Returns a section as JSON, with "HELPFOLDER name" as product name and so on.
///
/// \param items  the elements of "refItems", without the brackets
/// \param more   further members of the section, with a comma before them
std::string section(const std::string& helpFolder, const std::string& items,
                    const std::string& more = {});

/// The lines that the program printed, without their line feeds.
std::vector<std::string> linesOf(const std::string& text);

/// Parses the JSON that the program printed. Fails the test if it is invalid.
boost::json::value document(const std::string& text);

/// The documents that the program printed, one on each line.
std::vector<boost::json::value> documents(const std::string& lines);

} // namespace refdoc_tests
