#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace refdoc {

/// Returns English, the supported languages and the current language, each once and in this order.
/// \throws whatever the host services throw
std::vector<std::u16string> allLanguages();

/// Returns how many products have a translation into each language, judged only by the names of the
/// files. Sorted by language; never English.
///
/// A name is a translation if it is another of the names, "_" and a locale. A locale is a language
/// of two small letters ("de"), or one of two or three followed by a script, a territory or both
/// ("zh_CN", "sr_Latn", "sr_Latn_RS", "fil_PH"). "signal_io" beside "signal" therefore is a
/// translation, but "signal_io" alone and "signal_bar" are products.
/// \param names  of the files of a root, without extension
std::map<std::u16string, std::size_t> countTranslations(const std::set<std::u16string>& names);

/// Returns the names of the full resource files, in any language and without extension: those in
/// the reference root and those of support packages.
/// \throws whatever the host services throw
std::set<std::u16string> fullFileNames();

/// Returns fullFileNames() and the names of the lookup files and packages.
/// \throws whatever the host services throw
std::set<std::u16string> fileNames();

/// Returns English and the languages of countTranslations().
std::vector<std::u16string> inferLanguages(const std::set<std::u16string>& names);

} // namespace refdoc
