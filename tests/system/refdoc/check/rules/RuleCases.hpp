#pragma once

#include "tests/system/refdoc/check/rules/ExampleFolder.hpp"

#include <set>
#include <string>
#include <vector>

namespace refdoc_tests {

/// What a case shows about its rule, besides the example of the rule.
enum class CaseType {
    Negative,    ///< what comes nearest to a violation
    Boundary,    ///< the smallest or largest violation, or what just is none
    Entry,       ///< a violation in an entry of a package
    Translation, ///< a violation in a translation
};

/// An install folder, and where `refdoc check` reports the rule.
struct RuleCase {
    std::string rule;
    std::set<CaseType> types;
    std::vector<ExampleFile> files; ///< in paths, "full/" and "lookup/" are the resource folders
    std::string places{}; ///< such as "lookup/A.zip!A.json:2:1 lookup/B.json"; empty: nowhere
};

/// Cases of the rules about the text of a file.
std::vector<RuleCase> textRuleCases();
/// Cases of the rules about files, their names, and what several files have in common.
std::vector<RuleCase> fileRuleCases();

// The parts of the files of the cases. Their lines are counted in the places.

/// An installation manifest with the languages English and German.
ExampleFile germanManifest();

/// A section with its header on the first line and its items on lines of their own.
/// \param more  further members of the section, with a comma before them
std::string text(const std::string& items, const std::string& more = {},
                 const std::string& helpLocation = "help/k");

/// A lookup record and an item of a full resource file.
/// \param more  further members, with a comma before them
std::string record(const std::string& href, const std::string& more = {});
std::string item(const std::string& href, const std::string& more = {});

} // namespace refdoc_tests
