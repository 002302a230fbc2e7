#pragma once

#include <charconv>
#include <cstddef>
#include <optional>
#include <string_view>
#include <system_error>

namespace refdoc {

/// Returns the number that a value on the command line is, in decimal digits; absent if it is
/// anything else or too large.
inline std::optional<std::size_t> numberFrom(std::string_view value) {
    std::size_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [next, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && next == end ? std::optional(number) : std::nullopt;
}

} // namespace refdoc
