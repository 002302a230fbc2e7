#pragma once

#include <boost/json/value.hpp>

#include <cstddef>

namespace refdoc::diff {

// What identifies an element of an array in a record.

/// The number of keys that an element may have.
inline constexpr std::size_t kKeyCount = 3;

/// Returns a string that identifies an element, or null if it has no such key. The keys of an
/// object are its "url", "name" and "title", or only the name in its "objectInfo". A string is its
/// own first key.
/// \param keyIndex  below kKeyCount; the best key has index 0
const boost::json::string* keyOf(const boost::json::value& element, std::size_t keyIndex);

/// Returns the first key that an element has, or null.
const boost::json::string* firstKeyOf(const boost::json::value& element);

/// Returns whether an element has an array, as groups of syntaxes, inputs and properties have.
bool isGroup(const boost::json::value& element);

} // namespace refdoc::diff
