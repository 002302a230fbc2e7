#pragma once

#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <string>

namespace refdoc {

/// Adds the header of a section to the page: the product's name and its other properties.
/// \param note  shown below the header unless it is empty
void addHeader(Page& page, const reference::property::HeaderInfo& header,
               const std::u16string& note);

/// Adds an item to the page, without its empty fields.
/// \param note  shown below the title unless it is empty
void addItem(Page& page, const reference::property::RefItem& item, const std::u16string& note);

} // namespace refdoc
