#include "fuzz/support/Require.hpp"

#include <cstdlib>
#include <iostream>

namespace docparser_fuzz {

void require(bool isKept, std::string_view promise) noexcept {
    if (isKept)
        return;
    std::cerr << "broken promise: " << promise << std::endl;
    std::abort();
}

} // namespace docparser_fuzz
