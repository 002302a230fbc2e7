#pragma once

#include "tools/refdoc/diff/changes/Change.hpp"

#include <boost/json/value.hpp>

#include <string_view>

namespace refdoc::diff {

// The rules that decide how much the change of a field matters.

/// Returns the class of a string, number or boolean with different values.
///
/// A default or an anchor that existed before is breaking, one that is new is notable. A changed
/// deprecation is notable. Everything else is textual.
/// \param field  its JSON pointer in the record
ChangeClass classOfValue(std::string_view field, const boost::json::value& oldValue,
                         const boost::json::value& newValue);

/// Returns the class of an element that was removed from an array. Syntaxes, inputs, outputs,
/// parameters, properties and allowed values, and groups that hold any, are breaking; everything
/// else is textual.
/// \param array  the name of the array
ChangeClass classOfRemoved(std::string_view array, const boost::json::value& element);

/// Returns whether elements of the array may move between groups of an item, which neither removes
/// nor adds them.
bool isGrouped(std::string_view array);

/// Returns the last name of a JSON pointer that is no index: "inputs" for "/inputs/2".
std::string_view arrayOf(std::string_view field);

} // namespace refdoc::diff
