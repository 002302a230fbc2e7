#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace refdoc::diff {

/// The part of a Change that is about one field; its members are described there.
struct FieldChange {
    ChangeClass changeClass{};
    std::string field{};
    std::string oldField{};
    boost::json::value oldValue{};
    boost::json::value newValue{};
};

/// Compares two records of the same type. The changes are in the order of the fields; removed
/// elements of an array precede the added ones.
///
/// Elements of arrays are matched by "objectInfo"."name", "url", "name" or "title". Groups, which
/// have arrays themselves, are matched in their order if their titles differ. An element that moved
/// to another group is reported as removed and added, but is textual if nothing about it broke.
/// \param oldRecord, newRecord  as JSON, see docparser/json/RecordFields.hpp
/// Cost: linear, on average.
std::vector<FieldChange> compareRecords(const boost::json::value& oldRecord,
                                        const boost::json::value& newRecord);

/// Makes the links of a moved item lead to its new page: each member "href" that is the old link
/// and an anchor.
void followMove(boost::json::value& record, std::string_view oldHref, std::string_view newHref);

} // namespace refdoc::diff
