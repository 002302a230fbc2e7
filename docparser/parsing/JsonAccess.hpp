#pragma once

#include "docparser/parsing/StringParsingType.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <string_view>

namespace reference::docparser {

// Reading strings and arrays out of a parsed document. A missing required key and a value of the
// wrong kind throw FormatError. Nothing here changes the document, so threads may share it.

/// The text of a JSON string.
std::u16string getFluString(const boost::json::value& value, StringParsingType type);

/// The text of the string under a required key.
std::u16string getFluString(const boost::json::object& object, const std::string& key,
                            StringParsingType type);

/// The text of the string under an optional key; empty when there is no such key.
std::u16string getFluStringWithFallback(const boost::json::object& object, const std::string& key,
                                        StringParsingType type);

/// The bytes of a JSON string, as they are in the document.
std::string_view getJsonString(const boost::json::value& value);

/// The value as an object.
const boost::json::object& getJsonObject(const boost::json::value& value);

/// The value as an array.
const boost::json::array& getJsonArray(const boost::json::value& value);

/// The array under a required key of an object.
const boost::json::array& getJsonArray(const boost::json::value& object, const std::string& key);

} // namespace reference::docparser
