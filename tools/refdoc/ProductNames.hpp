#pragma once

#include <string>
#include <vector>

namespace refdoc {

/// The names that `show` knows a product by: those of the full resource files of the reference
/// root and of the support packages, without the suffix of the current language. Sorted, each
/// once. Files of other supported languages are left out.
/// \throws whatever the host services throw
std::vector<std::u16string> productNames();

} // namespace refdoc
