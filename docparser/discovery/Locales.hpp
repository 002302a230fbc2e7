#pragma once

#include <string>
#include <vector>

namespace reference::docparser {

/// The suffix that marks the files of a language: "_de" for "de".
std::u16string makeLocaleSuffix(const std::u16string& language);

/// The current documentation language, just as the language service answers; an empty answer stays
/// empty.
/// \throws whatever the language service throws
std::u16string getCurrentLocale();

/// The suffixes of the supported languages but English, in the language service's order, repeated
/// ones included. Only the exact "en" is English: "EN" and "en_US" have a suffix.
/// \throws whatever the language service throws
std::vector<std::u16string> getSupportedDocLocales();

} // namespace reference::docparser
