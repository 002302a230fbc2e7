#pragma once

#include <string>
#include <string_view>

namespace refdoc {

// The links in records, which are relative to the help location of their section.

/// Returns the path of a link from the folder of all help locations, without ".", ".." and
/// fragment: "help/cellar" and "../orchard/a.html#x" make "help/orchard/a.html".
std::u16string resolvedLink(std::u16string_view helpLocation, std::u16string_view link);

/// Returns whether a link has a scheme, a host or nothing but a fragment, so that it does not lead
/// to another page of the documentation.
bool leavesDocumentation(std::u16string_view link);

} // namespace refdoc
