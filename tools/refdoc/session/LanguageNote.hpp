#pragma once

#include "tools/refdoc/cli/Options.hpp"

#include <optional>
#include <string>

namespace refdoc {

// What the user should know about the languages of a call. The supported languages are those of
// --langs, otherwise those of the manifest; without either, those that the names of the files show.
// The options are those passed to applyOptions(), which decide the folders.

/// Expects that the requested language is supported or English.
/// \throws UsageError  it is not; names a similar language if there is one
/// \throws whatever the host services throw
void expectSupportedLanguage(const Options& options);

/// Returns the note that the requested language is not supported and joins the supported ones, so
/// that the output may be all English. Absent if the language is supported or English, or if the
/// supported languages are unknown: neither named nor shown by any file.
/// \throws whatever the host services throw
std::optional<std::string> unsupportedLanguageNote(const Options& options);

/// Returns the note that files look like translations but count as products, because neither
/// --langs nor a manifest names the languages. Absent unless at least two products have a file with
/// the same suffix.
/// \throws whatever the host services throw
std::optional<std::string> uncountedTranslationsNote(const Options& options);

} // namespace refdoc
