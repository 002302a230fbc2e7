#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// Returns the type of an entity in words: "class", "static method", "macro function".
std::u16string typeText(reference::property::RefEntityType::Value entityType,
                        reference::property::FunctionType::Value functionType);

/// Returns the plural of what typeText() returns: "classes", "static methods", "properties".
std::u16string pluralOf(const std::u16string& type);

/// Returns what a status means for users: "not recommended for new work"; empty for None.
std::u16string_view meaningOf(reference::property::DeprecationStatus::Value status) noexcept;

/// Returns a string in quotation marks, as UTF-8.
std::string quoted(const std::u16string& text);

/// Returns "a", "a or b" or "a, b or c".
/// \param names  not empty
std::string alternatives(const std::vector<std::string>& names);

} // namespace refdoc
