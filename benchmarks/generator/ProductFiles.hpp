#pragma once

#include "benchmarks/generator/JsonObject.hpp"
#include "benchmarks/generator/Prose.hpp"

#include <cstddef>
#include <string>

namespace reference::docparser::benchmarks {

/// What the files of one generated product follow from. The same product has the same items and
/// links in every language; only its texts differ.
struct GeneratedProduct {
    std::string name;
    std::uint64_t seed;
    std::size_t itemCount; ///< pages of the reference
};

/// The product's full resource file in one language, JSON in UTF-8.
///
/// Items have 18 strings on average, identifiers of 24 bytes and texts of 72, and mostly write
/// their keys in the format's order. A translation lacks one item in twelve. One product in twenty
/// has a section under "supportPackages".
std::string makeFullFile(const GeneratedProduct& product, Language language,
                         TextStatistics& statistics);

/// The product's lookup file in one language: three names for two pages, 4.6 strings a name; a few
/// names stand there twice.
std::string makeLookupFile(const GeneratedProduct& product, Language language,
                           TextStatistics& statistics);

} // namespace reference::docparser::benchmarks
