#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// What a complaint about something that was not found says at its end.

/// Where a user goes whose folders hold nothing at all.
inline constexpr std::string_view kOtherFolders = "; --install or --root names another folder";

/// `; did you mean "a", "b" or "c"?`
/// \param names      what may have been meant, the likeliest first
/// \param otherwise  the answer when there are no such names
std::string didYouMean(const std::vector<std::u16string>& names, std::string_view otherwise);

/// The products near to a name, at most three.
std::vector<std::u16string> nearProducts(const std::u16string& name,
                                         const std::vector<std::u16string>& products);

/// The hrefs that somebody may have meant, at most three: of the items that document something of
/// this name, or whose file has it, else those that are near to it.
std::vector<std::u16string>
nearHrefs(const std::u16string& href,
          const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
