#pragma once

#include <cstddef>

namespace docparser_tests {

/// What the thread has asked operator new for since the object was made.
///
/// The test program's own operator new keeps the tallies, so everything that it is linked with is
/// counted, the shared libraries included. Memory that is given back stays counted.
class AllocationCount {
public:
    AllocationCount() noexcept;

    std::size_t requests() const noexcept;     ///< how often memory was asked for
    std::size_t bytes() const noexcept;        ///< how much, all requests together
    std::size_t largestBytes() const noexcept; ///< how much at once; of the latest object alone

private:
    std::size_t requestsBefore_;
    std::size_t bytesBefore_;
};

} // namespace docparser_tests
