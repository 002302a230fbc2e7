#pragma once

#include "tools/refdoc/cli/Options.hpp"

#include <optional>
#include <string>

namespace refdoc {

/// The note for somebody who asks for a language that is not among the supported ones: it joins
/// them, and what is shown may all be English. Absent when there is nothing to say: the language is
/// supported, it is English, or nobody ever said which ones are.
/// \param options  as applyOptions() has applied them
/// \throws whatever the host services throw
std::optional<std::string> unsupportedLanguageNote(const Options& options);

} // namespace refdoc
