#pragma once

#include "tests/support/ResourceText.hpp"
#include "tests/system/refdoc/RefdocTest.hpp"

#include <boost/json/value.hpp>

#include <set>
#include <string>
#include <vector>

namespace refdoc_tests {

/// Returns what `refdoc translations --json` reports, a line for each defect:
/// "Orchard de missing a.html", "Orchard de outOfStep a.html inputs", "Orchard de renamed old.html
/// new.html"; of lookup records "Orchard de lookup missing graft a.html".
std::set<std::string> defectsIn(const boost::json::value& report);

/// Returns an element of "refItems" of a full resource file.
/// \param more  further keys
boost::json::object itemWith(std::string_view href, std::string_view refPurpose,
                             boost::json::object more);

/// Runs `refdoc translations` on an install folder with the languages English, German and Japanese.
class TranslationsTest : public RefdocTest {
protected:
    TranslationsTest();

    /// Returns defectsIn() what the command prints for the folder.
    std::set<std::string> defects(std::vector<std::string> arguments = {}) const;

    /// Writes a package of lookup files; `entries` are names and contents.
    void addPackage(const std::string& name,
                    const std::vector<std::pair<std::string, std::string>>& entries) const;
};

} // namespace refdoc_tests
