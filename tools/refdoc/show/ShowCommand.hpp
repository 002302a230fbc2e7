#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Runs `show`: the full records of a product, or of its items with the HREFs.
///
/// A product without resources, and each HREF that the product lacks, is a complaint that suggests
/// up to three names.
/// \throws whatever the host services throw
Answer runShow(const Options& options, const PageSetup& setup);

/// Returns the complaint about a product without resources: the files that were tried, near names.
/// \throws whatever the host services throw
std::string complaintAboutProduct(const std::u16string& product);

/// Returns a complaint for each HREF that the product lacks.
std::vector<std::string> complaintsAboutHrefs(
    const std::u16string& product, const std::vector<std::u16string>& hrefs,
    const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

} // namespace refdoc
