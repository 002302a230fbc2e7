#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// How many letters it takes to turn one name into the other, by adding, dropping, changing or
/// swapping neighbours; `limit + 1` when it takes more than `limit`. Case counts as nothing for the
/// letters of ASCII. Costs the length of a name times `limit`.
std::size_t editDistance(std::u16string_view left, std::u16string_view right, std::size_t limit);

/// The names that somebody who typed `name` may have meant, the nearest first, then in the order
/// of code units; each once.
///
/// Near is what differs in a third of the letters at most and in three letters at most.
/// \param known    what can be meant, in any order
/// \param maximum  how many to give at most
std::vector<std::u16string> nearNames(std::u16string_view name,
                                      const std::vector<std::u16string_view>& known,
                                      std::size_t maximum);

} // namespace refdoc
