#pragma once

#include "tools/refdoc/cli/Options.hpp"

#include <optional>
#include <string>

namespace refdoc {

/// Returns the note that the requested language is not supported and joins the supported ones, so
/// that the output may be all English. Absent if the language is supported or English, or if
/// neither the options nor a manifest list the supported languages.
/// \param options  those passed to applyOptions()
/// \throws whatever the host services throw
std::optional<std::string> unsupportedLanguageNote(const Options& options);

} // namespace refdoc
