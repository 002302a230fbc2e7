#pragma once

#include <string>
#include <vector>

namespace reference::docparser {

/// Returns the suffix that marks the files of a language: "_de" for "de".
std::u16string makeLocaleSuffix(const std::u16string& language);

/// Returns the current documentation language exactly as the language service reports it, even if
/// it is empty.
/// \throws whatever the language service throws
std::u16string getCurrentLocale();

/// Returns the suffixes of the supported languages except English, in the language service's order,
/// duplicates included. Only exactly "en" is English: "EN" and "en_US" have a suffix.
/// \throws whatever the language service throws
std::vector<std::u16string> getSupportedDocLocales();

} // namespace reference::docparser
