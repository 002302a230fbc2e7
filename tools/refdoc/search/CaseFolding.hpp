#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// Replaces the content of `folded` by a string without differences of letter case, by the full
/// case folding of Unicode: "ß" becomes "ss". An unpaired surrogate stays. Keeps the memory of
/// `folded`, so that a string that is used again allocates nothing.
/// \param origins  unless null, receives for each code unit of `folded` the position in `text` of
///                 the character that it comes from
void foldCase(std::u16string_view text, std::u16string& folded,
              std::vector<std::size_t>* origins = nullptr);

} // namespace refdoc
