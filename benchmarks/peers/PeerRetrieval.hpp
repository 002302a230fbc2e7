#pragma once

#include "docparser/parsing/RefItem.hpp"
#include "docparser/retrieval/LookupFiles.hpp"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace reference::docparser::benchmarks {

// The retrieval of a root as a program would do it that needs no path, package or language
// library: standard directory walk, POSIX reads, libzip. The results are the facade's; merging is
// the library's own. What is missing or damaged is left out.

/// Makes records of the text of a file of the product named; the text has kSpareBytes behind it.
template <class T>
using ReadText = std::function<ResourceMap<T>(std::string text, const std::u16string& product)>;

/// The bytes of a file with kSpareBytes of room behind them; empty when there is none.
std::string readFile(const std::filesystem::path& path);

/// A product's full records, the language's over the English ones; empty when there are none.
ResourceMap<property::RefItem> retrieveProduct(const std::filesystem::path& folder,
                                               const std::u16string& product,
                                               const std::string& language,
                                               const ReadText<property::RefItem>& read);

/// What a lookup retrieval hangs on besides the folder.
struct LookupSettings {
    std::string language;
    std::vector<std::string> otherLanguages; ///< every supported one but English
    std::unordered_set<std::u16string> installed;
};

LookupResults retrieveLookups(const std::filesystem::path& folder, const LookupSettings& settings,
                              const ReadText<property::RefItemLookup>& read);

} // namespace reference::docparser::benchmarks
