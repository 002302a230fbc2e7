#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/explain/Origins.hpp"
#include "tools/refdoc/terminal/PageSetup.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc {

/// The answer of `explain`, before it is formatted.
struct Explanation {
    std::optional<std::u16string> product{}; ///< the product in question ...
    std::optional<std::u16string> href{};    ///< ... or one of its items;
    std::optional<std::u16string> name{};    ///< or a name of the lookup index
    std::u16string language{};               ///< the documentation language
    reference::docparser::LoadAccount account{};
    std::vector<SectionOrigins> sections{}; ///< those that hold something of it, or did
};

/// The answer for people.
std::string explanationPage(const Explanation& explanation, const PageSetup& setup);

/// The output of `--json`: one document.
std::string explanationDocument(const Explanation& explanation);

/// The output of `--jsonl`: a line for each record of the sections, first those of the result, then
/// those that lost.
std::string explanationLines(const Explanation& explanation);

} // namespace refdoc
