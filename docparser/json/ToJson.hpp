#pragma once

#include "docparser/json/Fields.hpp"
#include "docparser/parsing/Enumerations.hpp"
#include "platform/i18n/Converter.hpp"

#include <boost/json/value.hpp>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace reference::json {

// The words of the enumerations in the library's records.

inline std::string_view toWord(property::RefEntityType::Value value) {
    return property::RefEntityType::enumToString(value);
}

inline std::string_view toWord(property::SyntaxType::Value value) {
    return property::SyntaxType::enumToString(value);
}

inline std::string_view toWord(property::DeprecationStatus::Value value) {
    return property::DeprecationStatus::enumToString(value);
}

inline std::string_view toWord(property::FunctionType::Value value) {
    return property::FunctionType::enumToString(value);
}

/// Converts a value to JSON: a UTF-16 or UTF-8 string, a number, a boolean, an enumeration with a
/// toWord(), or a record with kFields, which becomes an object with a member for each field. An
/// unpaired surrogate becomes U+FFFD.
/// \param storage  for the result and everything in it; a monotonic_resource makes a large result
///                 smaller and faster
template <class T>
boost::json::value toJson(const T& value, const boost::json::storage_ptr& storage = {});

/// Returns null if there is no value.
template <class T>
boost::json::value toJson(const std::optional<T>& value,
                          const boost::json::storage_ptr& storage = {});

/// Returns an array.
template <class T>
boost::json::value toJson(const std::vector<T>& elements,
                          const boost::json::storage_ptr& storage = {});

/// Returns an object with the members in the order of the map.
template <class T>
boost::json::value toJson(const std::map<std::u16string, T>& members,
                          const boost::json::storage_ptr& storage = {});

template <class T>
boost::json::value toJson(const T& value, const boost::json::storage_ptr& storage) {
    if constexpr (std::is_same_v<T, std::u16string>) {
        return boost::json::value(fl::i18n::to_string(value), storage);
    } else if constexpr (std::is_arithmetic_v<T> ||
                         std::is_convertible_v<const T&, std::string_view>) {
        return boost::json::value(value, storage);
    } else if constexpr (std::is_enum_v<T>) {
        return boost::json::value(toWord(value), storage);
    } else {
        boost::json::object object(storage);
        object.reserve(std::tuple_size_v<decltype(kFields<T>)>);
        visitFields(value, [&](const char* name, const auto& field) {
            object.emplace(name, toJson(field, storage));
        });
        return object;
    }
}

template <class T>
boost::json::value toJson(const std::optional<T>& value, const boost::json::storage_ptr& storage) {
    return value ? toJson(*value, storage) : boost::json::value();
}

template <class T>
boost::json::value toJson(const std::vector<T>& elements, const boost::json::storage_ptr& storage) {
    boost::json::array array(storage);
    array.reserve(elements.size());
    for (const T& element : elements)
        array.push_back(toJson(element, storage));
    return array;
}

template <class T>
boost::json::value toJson(const std::map<std::u16string, T>& members,
                          const boost::json::storage_ptr& storage) {
    boost::json::object object(storage);
    object.reserve(members.size());
    for (const auto& [key, value] : members)
        object.emplace(fl::i18n::to_string(key), toJson(value, storage));
    return object;
}

} // namespace reference::json
