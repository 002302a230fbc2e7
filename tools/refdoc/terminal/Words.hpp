#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>

namespace refdoc {

/// Returns the type of an entity in words: "class", "static method", "macro function".
std::u16string kindText(reference::property::RefEntityType::Value entityType,
                        reference::property::FunctionType::Value functionType);

/// Returns a string in quotation marks, as UTF-8.
std::string quoted(const std::u16string& text);

} // namespace refdoc
