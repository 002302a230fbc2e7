#pragma once

#include "benchmarks/generator/ProductFiles.hpp"

#include <functional>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// Link to a page: the same for the same name and number.
std::string pageOf(const std::string& name, std::size_t number);

/// The items of a section, each a JSON object.
using MakeItems =
    std::function<std::vector<std::string>(const GeneratedProduct& section, std::size_t count)>;

/// One file of either kind: its header, its items and, for one product in twenty, a section of a
/// support package.
std::string makeFile(const GeneratedProduct& product, Language language, TextStatistics& statistics,
                     const MakeItems& makeItems);

} // namespace reference::docparser::benchmarks
