#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/findings/PendingFindings.hpp"
#include "tools/refdoc/check/rules/MergeRules.hpp"

#include <boost/json/value.hpp>

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace refdoc::check {

// Rules about the text of a file: whether it is JSON, and, through SchemaRules, what the JSON
// holds.

std::span<const Rule* const> contentRules();

/// Returns whether a document is a lookup file or a full resource file, by the first item whose
/// keys tell; empty if there is none.
std::optional<reference::docparser::FileRole> roleOf(const boost::json::value& document);

/// Checks a file that the library has read. Parses its text once, for all purposes.
/// \param pending  reports what is pending about the file's records
/// \param losses   reads the records that it compares
/// \param findings the findings about this file so far; receives more, and the positions of all
void checkContent(const reference::docparser::FileAccount& account, const SourceFile& file,
                  std::string_view text, PendingFindings& pending, MergeLosses& losses,
                  std::vector<Finding>& findings);

/// Returns the findings about the text of an installation manifest; none if the text is empty,
/// because a manifest is optional.
std::vector<Finding> checkManifest(const SourceFile& file, std::string_view text);

} // namespace refdoc::check
