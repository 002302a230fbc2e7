#pragma once

#include <boost/json/value.hpp>

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {

/// A value of every JSON type, with every representation of a number, and the name of its type in
/// the messages of the parsers.
inline const std::vector<std::pair<boost::json::value, std::string>>& everyType() {
    static const std::vector<std::pair<boost::json::value, std::string>> values = {
        {nullptr, "null"},
        {true, "a Boolean"},
        {-1, "a number"},
        {18446744073709551615U, "a number"},
        {1.5, "a number"},
        {"grafting", "a string"},
        {boost::json::array{}, "an array"},
        {boost::json::object{}, "an object"}};
    return values;
}

/// Adds the JSON pointer of every value below `value`. Keys must not contain '~' or '/'.
/// \param pointer  the JSON pointer of `value`
inline void addPointers(const boost::json::value& value, const std::string& pointer,
                        std::set<std::string>& pointers) {
    if (const boost::json::object* object = value.if_object()) {
        for (const boost::json::key_value_pair& member : *object) {
            const std::string child = pointer + '/' + std::string(member.key());
            pointers.insert(child);
            addPointers(member.value(), child, pointers);
        }
    }
    if (const boost::json::array* array = value.if_array()) {
        for (std::size_t i = 0; i < array->size(); ++i) {
            const std::string child = pointer + '/' + std::to_string(i);
            pointers.insert(child);
            addPointers(array->at(i), child, pointers);
        }
    }
}

/// Sets or adds the member of an object to which `pointer` refers.
inline void putIn(boost::json::value& document, const std::string& pointer,
                  const boost::json::value& value) {
    const std::size_t end = pointer.rfind('/');
    document.at_pointer(pointer.substr(0, end)).as_object()[pointer.substr(end + 1)] = value;
}

} // namespace docparser_tests
