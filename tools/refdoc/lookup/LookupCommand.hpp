#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Runs `lookup`: the lookup index, or its entries for the NAMEs.
///
/// Each NAME that the index lacks is a complaint that suggests up to three names. An empty index is
/// not a failure.
/// \throws whatever the host services throw
Answer runLookup(const Options& options, const PageSetup& setup);

/// Returns a complaint for each NAME that the index lacks.
std::vector<std::string> complaintsAboutNames(
    const std::vector<std::u16string>& names,
    const reference::docparser::ParsingResults<
        reference::docparser::ResourceMap<reference::property::RefItemLookup>>& results);

} // namespace refdoc
