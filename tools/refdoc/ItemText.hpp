#pragma once

#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "tools/refdoc/Page.hpp"

namespace refdoc {

/// Puts the heading of a section on the page: the product's name and what identifies it.
void addHeader(Page& page, const reference::property::HeaderInfo& header);

/// Puts everything that an item documents on the page; what is empty leaves no trace.
void addItem(Page& page, const reference::property::RefItem& item);

} // namespace refdoc
