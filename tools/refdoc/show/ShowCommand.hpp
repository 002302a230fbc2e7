#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Runs `show`: the full records of one product, or those of its items that have one of the HREFs.
///
/// A product without resources, and each HREF that the product has not, is a complaint, with up to
/// three names that may be meant.
/// \throws whatever the host services throw
Answer runShow(const Options& options, const PageSetup& setup);

/// The complaint about a product without resources: the places that were tried, near names.
/// \throws whatever the host services throw
std::string complaintAboutProduct(const std::u16string& product);

/// A complaint for each of the HREFs that no section of the product has.
std::vector<std::string> complaintsAboutHrefs(
    const std::u16string& product, const std::vector<std::u16string>& hrefs,
    const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
