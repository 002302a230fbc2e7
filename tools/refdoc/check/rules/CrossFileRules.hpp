#pragma once

#include "tools/refdoc/check/findings/PendingFindings.hpp"
#include "tools/refdoc/check/rules/LanguageContents.hpp"

#include <set>
#include <span>
#include <string>
#include <string_view>

namespace refdoc::check {

// Rules about references between files: the lookup index, the full resources, and the installed
// products.

std::span<const Rule* const> crossFileRules();

/// Adds what does not fit together between the lookup index and the full resources of one language.
/// Any file that has the section or the record can report it.
void addCrossFileFindings(const LanguageContents& contents, PendingFindings& pending);

/// Adds the keys of all sections.
void addSectionKeys(const LanguageContents& contents, std::set<std::u16string>& keys);

/// Adds the findings about installed products and support packages without a section. They are in
/// the manifest if it lists the name, and else in the reference root.
/// \param keys  the keys of all sections, in any language
/// \param text  the manifest, which the library has accepted; empty if there is none
void addUndocumented(const std::set<std::u16string>& keys, const SourceFile& manifest,
                     std::string_view text, Findings& findings);

} // namespace refdoc::check
