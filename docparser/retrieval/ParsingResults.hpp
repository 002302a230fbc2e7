#pragma once

namespace reference::docparser {

/// Resources of all products, split by whether the product is installed.
/// \tparam Map  a resource map
template <class Map>
struct ParsingResults {
    /// Of what is installed: a top-level product of this key, or a support package.
    Map installed;
    /// Of everything else.
    Map notInstalled;

    bool operator==(const ParsingResults&) const = default;
};

} // namespace reference::docparser
