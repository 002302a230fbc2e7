#pragma once

#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <string>

namespace refdoc {

/// Adds the heading of a section to the page: the product's name and identifiers.
/// \param note  added below the heading, unless it is empty
void addHeader(Page& page, const reference::property::HeaderInfo& header,
               const std::u16string& note);

/// Adds all fields of an item to the page, except empty ones.
/// \param note  added below the title, unless it is empty
void addItem(Page& page, const reference::property::RefItem& item, const std::u16string& note);

} // namespace refdoc
