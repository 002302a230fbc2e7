#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// Upper-case ASCII letters are the same as lower-case ones here.

/// Returns a text with lower-case ASCII letters.
std::u16string lowered(std::u16string_view text);

/// Returns the edit distance of two names; see reference::docparser::editDistance().
std::size_t nameDistance(std::u16string_view left, std::u16string_view right, std::size_t limit);

/// Returns whether two names are the same.
bool isSameName(std::u16string_view left, std::u16string_view right);

/// Returns the known names that a user who typed `name` may have meant: the nearest first, equally
/// near ones in code unit order, each once. A near name differs in at most a third of the letters,
/// and in at most three.
/// \param known    in any order
/// \param maximum  the most names to return
std::vector<std::u16string> nearNames(std::u16string_view name,
                                      const std::vector<std::u16string_view>& known,
                                      std::size_t maximum = 3);

} // namespace refdoc
