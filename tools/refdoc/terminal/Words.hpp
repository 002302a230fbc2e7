#pragma once

#include "docparser/DocResourceParser.hpp"

#include <string>

namespace refdoc {

/// What an entity is, in words: "class", "static method", "macro function".
std::u16string kindText(reference::property::RefEntityType::Value entityType,
                        reference::property::FunctionType::Value functionType);

/// The text between quotation marks, as UTF-8.
std::string quoted(const std::u16string& text);

} // namespace refdoc
