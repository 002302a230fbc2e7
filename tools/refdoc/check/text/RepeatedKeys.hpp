#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

/// Two members of one object that have the same key. The parser ignores the earlier one.
struct RepeatedKey {
    std::string pointer; ///< the JSON pointer of both members
    std::size_t earlier; ///< the byte offset of the opening quotation mark of the earlier key
    std::size_t later;   ///< the same of the later key

    bool operator==(const RepeatedKey&) const = default;
};

/// Finds the keys that are repeated within an object, in the order of the later keys. A key that
/// occurs three times makes two pairs of neighbours. Keys are compared without their escapes: "a"
/// and "\u0061" are equal.
/// \param text  a text that Boost.JSON accepts with its default options
/// Cost: one pass over the text, and sorting the keys of each object; about as much as parsing it.
std::vector<RepeatedKey> findRepeatedKeys(std::string_view text);

} // namespace refdoc::check
