#include "tests/system/refdoc/RefdocTest.hpp"

#include <utility>

namespace refdoc_tests {

Outcome RefdocTest::runAtTerminal(std::size_t columns, std::vector<std::string> arguments,
                                  const Surroundings& surroundings) const {
    return runOnTerminal(columns, withInstall(std::move(arguments)), surroundings);
}

} // namespace refdoc_tests
