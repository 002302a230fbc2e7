#pragma once

#include "docparser/DocResourceParser.hpp"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

// How a message about something that was not found ends.

/// The ending if the folders contain nothing at all.
inline constexpr std::string_view kOtherFolders = "; --install or --root names another folder";

/// Returns `; did you mean "a", "b" or "c"?`
/// \param names      what the user may have meant, the likeliest first
/// \param otherwise  the result if there are no such names
std::string didYouMean(const std::vector<std::u16string>& names, std::string_view otherwise = {});

/// Returns `; did you mean "a"?` with the known name that is nearest to `name`; empty if none is
/// near. All strings are UTF-8.
std::string didYouMean(std::string_view name, const std::vector<std::string>& known);

/// Returns the name of the folder that a missing folder may be meant by: the one beside it whose
/// name is nearest. It is the only element of the list, which is empty if none is near.
std::vector<std::u16string> nearFolders(const std::filesystem::path& missing);

/// Returns at most three hrefs that the user may have meant: those whose items document something
/// of this name, or whose file has this name; otherwise those that are near to it.
std::vector<std::u16string>
nearHrefs(const std::u16string& href,
          const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
