#pragma once

#include <boost/json/value.hpp>

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {

/// A value of every JSON kind and the name that the parser's messages have for it.
inline const std::vector<std::pair<boost::json::value, std::string>>& everyKind() {
    static const std::vector<std::pair<boost::json::value, std::string>> kinds = {
        {nullptr, "null"},
        {true, "bool"},
        {-1, "int64"},
        {18446744073709551615U, "uint64"},
        {1.5, "double"},
        {"grafting", "string"},
        {boost::json::array{}, "array"},
        {boost::json::object{}, "object"}};
    return kinds;
}

/// Collects the JSON pointers of all values below a value whose keys need no escapes.
/// \param pointer  the value's own
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

/// Gives an object of the document the member that the pointer ends in, or another value for it.
inline void putIn(boost::json::value& document, const std::string& pointer,
                  const boost::json::value& value) {
    const std::size_t end = pointer.rfind('/');
    document.at_pointer(pointer.substr(0, end)).as_object()[pointer.substr(end + 1)] = value;
}

} // namespace docparser_tests
