#include "docparser/parsing/FormatError.hpp"

#include "docparser/parsing/TextPlaces.hpp"

#include <boost/json/value.hpp>

#include <utility>

namespace reference::docparser {

namespace json = boost::json;

namespace {

// Appends the path from `value` to `place` to the pointer, or returns false and leaves the pointer
// unchanged. The parser limits the nesting depth of documents, and with it this recursion.
bool findPlace(const json::value& value, const void* place, std::string& pointer) {
    if (place == &value || place == value.if_object())
        return true;
    const std::size_t length = pointer.size();
    const auto descend = [&](const json::value& child, const std::string& token) {
        pointer += '/' + token;
        if (findPlace(child, place, pointer))
            return true;
        pointer.resize(length);
        return false;
    };
    if (const json::object* object = value.if_object()) {
        for (const json::key_value_pair& member : *object) {
            if (descend(member.value(), pointerToken(member.key())))
                return true;
        }
    }
    if (const json::array* array = value.if_array()) {
        std::size_t index = 0;
        for (const json::value& element : *array) {
            if (descend(element, std::to_string(index++)))
                return true;
        }
    }
    return false;
}

} // namespace

FormatError::FormatError(const void* place, std::string reason)
    : place_(place), reason_(std::move(reason)), message_(reason_) {}

void FormatError::locate(const json::value& document) {
    std::string pointer;
    if (!findPlace(document, place_, pointer))
        return;
    pointer_ = std::move(pointer);
    message_ = pointer_ + ": " + reason_;
}

} // namespace reference::docparser
