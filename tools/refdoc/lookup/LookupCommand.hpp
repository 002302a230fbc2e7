#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/cli/Answer.hpp"
#include "tools/refdoc/cli/Options.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <string>
#include <vector>

namespace refdoc {

/// Runs `lookup`: the lookup index, or the entries of the NAMEs.
///
/// Each NAME that the index has not is a complaint, with up to three names that may be meant.
/// An empty index is no failure.
/// \throws whatever the host services throw
Answer runLookup(const Options& options, const PageSetup& setup);

/// A complaint for each of the NAMEs that no section of the index has.
std::vector<std::string> complaintsAboutNames(
    const std::vector<std::u16string>& names,
    const reference::docparser::ParsingResults<
        reference::docparser::ResourceMap<reference::property::RefItemLookup>>& results);

} // namespace refdoc
