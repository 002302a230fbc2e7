#pragma once

#include "platform/Cxx20.hpp"

namespace reference::docparser {

/// Resources of all products, split by whether the product is installed.
/// \tparam Map  a resource map
template <class Map>
struct ParsingResults {
    /// The sections whose key is an installed top-level product or support package.
    Map installed;
    /// All other sections.
    Map notInstalled;

    bool operator==(const ParsingResults&) const = default;
};

} // namespace reference::docparser
