#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// Whether letters that differ only in case are the same. Only ASCII letters have a case here.
enum class LetterCase { Ignored, Distinct };

/// Returns how many letters must be added, removed, changed or swapped with their neighbour to turn
/// one name into the other; `limit + 1` if it takes more than `limit`. The cost is the product of
/// the lengths.
std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit,
                         LetterCase letterCase = LetterCase::Ignored);

/// Returns the known names that a user who typed `name` may have meant: the nearest first, equally
/// near ones in code unit order, each once. A near name differs in at most a third of the letters,
/// and in at most three.
/// \param known    in any order
/// \param maximum  the most names to return
std::vector<std::u16string> nearNames(std::u16string_view name,
                                      const std::vector<std::u16string_view>& known,
                                      std::size_t maximum = 3);

} // namespace refdoc
