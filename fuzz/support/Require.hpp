#pragma once

#include <string_view>

namespace docparser_fuzz {

/// If a promise is broken, prints it and aborts, which a fuzzer reports as a finding and ctest as a
/// failure.
void require(bool isKept, std::string_view promise) noexcept;

} // namespace docparser_fuzz
