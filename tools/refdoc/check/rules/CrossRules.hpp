#pragma once

#include "tools/refdoc/check/rules/LanguageRun.hpp"
#include "tools/refdoc/check/rules/Questions.hpp"

#include <boost/json/value.hpp>

#include <set>
#include <string>
#include <vector>

namespace refdoc::check {

/// Asks about what does not fit together between the lookup index and the full resources of one
/// language. The file that has the section in question bears the finding.
void askAcrossFiles(const LanguageRun& run, Questions& questions);

/// The keys of all sections of a run.
void addSectionKeys(const LanguageRun& run, std::set<std::u16string>& keys);

/// The installation manifest of the current host; of a host without one, nothing.
struct Manifest {
    SourceFile file{};
    boost::json::value content{}; ///< null: there is none
};

/// Installed products, and support packages, without a section.
/// \param keys  the keys of all sections, in any language
void addUndocumented(const std::set<std::u16string>& keys, const Manifest& manifest,
                     std::vector<Finding>& findings);

} // namespace refdoc::check
