#pragma once

#include "docparser/parsing/StringParsingType.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <string_view>

namespace reference::docparser {

// Access to the strings, objects and arrays of a parsed document. All functions throw FormatError
// if a required key is missing or a value has the wrong type. They only read the document, so
// threads may share it; what they return by reference is part of it.

/// Converts a JSON string to UTF-16.
std::u16string getFluString(const boost::json::value& value, StringParsingType type);

/// Converts the string of a required key to UTF-16.
std::u16string getFluString(const boost::json::object& object, const std::string& key,
                            StringParsingType type);

/// Converts the string of an optional key to UTF-16; empty if the object does not have the key.
std::u16string getFluStringWithFallback(const boost::json::object& object, const std::string& key,
                                        StringParsingType type);

/// Returns the bytes of a JSON string.
std::string_view getJsonString(const boost::json::value& value);

const boost::json::object& getJsonObject(const boost::json::value& value);

const boost::json::array& getJsonArray(const boost::json::value& value);

/// Returns the array of a required key. `object` must be an object.
const boost::json::array& getJsonArray(const boost::json::value& object, const std::string& key);

} // namespace reference::docparser
