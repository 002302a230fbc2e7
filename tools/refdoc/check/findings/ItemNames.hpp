#pragma once

#include <boost/json/value.hpp>

#include <string>
#include <string_view>

namespace refdoc::check {

/// Returns what a value of a resource file is, in the words of its author: the package and the name
/// of its item or lookup record, and the path within it.
///
///     orchard.signal smooth, inputs[2]
///
/// An item without a name has its link instead. Outside of items, the result is only a path, such
/// as "supportPackages[1].baseCode"; for the document itself, it is empty.
/// \param pointer  JSON pointer to the value, which need not exist
std::string itemNameAt(const boost::json::value& document, std::string_view pointer);

} // namespace refdoc::check
