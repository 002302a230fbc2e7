#pragma once

#include "docparser/retrieval/LookupFiles.hpp"

#include <functional>
#include <string>
#include <vector>

namespace reference::docparser::benchmarks {

/// What the lookup index is read with, apart from the folder.
struct IndexSettings {
    LookupMap (*readText)(std::string text, const std::u16string& product);
    std::string language;
    const std::vector<std::string>& languages; ///< the supported ones
    std::function<bool(const std::u16string& key)> isInstalled;
};

/// Reads the lookup index as an application would without the library: with the standard walk over
/// a folder, POSIX calls and libzip. Sections are merged by the library.
LookupResults readIndex(const std::u16string& folder, const IndexSettings& settings);

} // namespace reference::docparser::benchmarks
