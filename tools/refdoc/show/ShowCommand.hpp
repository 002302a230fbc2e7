#pragma once

#include "docparser/DocResourceParser.hpp"
#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/cli/CommandTable.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace refdoc {

/// The command `show`: the full records of one product, or its items with the given hrefs or names;
/// or the item that the lookup index has under a name.
///
/// A product without resources and each href that the product lacks is a complaint, with up to
/// three similar names.
CommandEntry showCommand();

/// Returns the complaint about a product without resources: where its file is malformed, or else
/// the folders that were tried and similar names.
/// \param account     of the retrieval that found none
/// \param otherNames  what else the user may have meant, besides the products
/// \throws whatever the host services throw
std::string complaintAboutProduct(const std::u16string& product,
                                  const reference::docparser::LoadAccount& account,
                                  std::vector<std::u16string_view> otherNames = {});

/// Returns a complaint for each of the hrefs that no section of the product has.
std::vector<std::string> complaintsAboutHrefs(
    const std::u16string& product, const std::vector<std::u16string>& hrefs,
    const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
