#pragma once

#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "tools/refdoc/terminal/Page.hpp"

#include <string>

namespace refdoc {

/// Puts the heading of a section on the page: the product's name and what identifies it.
/// \param note  stands below it, unless it is empty
void addHeader(Page& page, const reference::property::HeaderInfo& header,
               const std::u16string& note);

/// Puts everything that an item documents on the page; what is empty leaves no trace.
/// \param note  stands first below its title
void addItem(Page& page, const reference::property::RefItem& item, const std::u16string& note);

} // namespace refdoc
