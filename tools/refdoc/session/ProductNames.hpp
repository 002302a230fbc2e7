#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// The name of the product that a file belongs to: the file's own, without the suffix of the
/// current language if it is a translation.
std::u16string productOf(const reference::docparser::ProductPathData& file,
                         const std::u16string& currentLanguage);

/// The names that `show` knows a product by: those of the full resource files of the reference
/// root and of the support packages, without the suffix of the current language. Sorted, each
/// once. Files of other supported languages are left out.
/// \throws whatever the host services throw
std::vector<std::u16string> productNames();

} // namespace refdoc
