#pragma once

#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "docparser/retrieval/LookupFiles.hpp"

#include <cstdint>

namespace reference::docparser::benchmarks {

// A number that two results share only if they agree in every field of every record, in their
// order and in their keys, as far as 64 bits can tell.

std::uint64_t digest(const ResourceMap<property::RefItem>& resources);
std::uint64_t digest(const ResourceMap<property::RefItemLookup>& resources);
std::uint64_t digest(const LookupResults& results);

} // namespace reference::docparser::benchmarks
