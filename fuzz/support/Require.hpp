#pragma once

#include <string_view>

namespace docparser_fuzz {

/// Ends the process, naming the promise, when it is broken: what a fuzzer takes for a finding and
/// ctest for a failure.
void require(bool isKept, std::string_view promise) noexcept;

} // namespace docparser_fuzz
