#pragma once

namespace reference::docparser {

/// Resources of all products, split by whether the product is installed.
/// \tparam Map  a resource map
template <class Map>
struct ParsingResults {
    Map installed;
    Map notInstalled;

    bool operator==(const ParsingResults&) const = default;
};

} // namespace reference::docparser
