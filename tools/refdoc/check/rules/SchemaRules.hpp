#pragma once

#include "docparser/account/LoadAccount.hpp"
#include "tools/refdoc/check/findings/Finding.hpp"
#include "tools/refdoc/check/schema/Schema.hpp"

#include <boost/json/value.hpp>

#include <span>
#include <vector>

namespace refdoc::check {

// Rules about the values of a document, according to its schema.

std::span<const Rule* const> schemaRules();

/// Compares a document with its schema, in the order of the document. The findings have pointers
/// and no positions; elements of arrays are identified by their names.
///
/// Cost: one or two comparisons for each value; messages and pointers are made for findings only.
/// \returns  whether the library drops a file with these findings
bool addSchemaFindings(const Schema& schema, const boost::json::value& document,
                       std::vector<Finding>& findings);

/// Returns the finding about a file that the library drops although it conforms to its schema.
Finding droppedFile(const reference::docparser::FileAccount& account);

} // namespace refdoc::check
