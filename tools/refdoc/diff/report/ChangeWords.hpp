#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <string_view>

namespace refdoc::diff {

// Changes in words, for people. Strings from the files stay as they are, with their controls.

/// What happened to a field of a record.
enum class FieldEvent { Added, Removed, Reordered, Changed };

FieldEvent fieldEvent(const Change& change);

/// Returns whether the change is about a field of a record, not about the record as a whole.
bool isFieldChange(const Change& change);

/// Returns whether the change is about an entry of the lookup index.
bool isLookupChange(const Change& change);

/// Returns what happened to something as a whole: "item added", "entry removed", "product removed".
std::string eventText(ChangeId id);

/// Returns a field in words, derived from its JSON pointer: "/refPurpose" is "purpose",
/// "/inputs/1/objectInfo/values/0" is "input 2, value 1". Elements count from 1.
std::string fieldText(std::string_view pointer);

/// Returns a value on one line: a string as it is, the name, title or link of a record, the
/// elements of an array with commas between them, any other value as JSON. Null is empty.
std::string valueText(const boost::json::value& value);

/// Returns how many records a product or section has that was added or removed: "12 items, 20
/// entries", or "empty".
std::string contentsText(const Change& change);

/// Returns "1 item" or "2 items".
std::string counted(std::size_t count, std::string_view one, std::string_view many);

/// Returns the last line of a report: "3 differences: 1 breaking, 2 textual". If files were
/// damaged, it speaks of undamaged files. If only one class is printed, the line names it.
std::string summaryText(const Summary& summary);

} // namespace refdoc::diff
