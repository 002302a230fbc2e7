#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// The command `show`: the full records of one product, or its items with the given hrefs.
///
/// A product without resources and each href that the product lacks is a complaint, with up to
/// three similar names.
CommandEntry showCommand();

/// Returns the complaint about a product without resources: the folders that were tried and similar
/// names.
/// \throws whatever the host services throw
std::string complaintAboutProduct(const std::u16string& product);

/// Returns a complaint for each of the hrefs that no section of the product has.
std::vector<std::string> complaintsAboutHrefs(
    const std::u16string& product, const std::vector<std::u16string>& hrefs,
    const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
