#include "docparser/parsing/Members.hpp"

#include "docparser/parsing/FormatError.hpp"

namespace reference::docparser {

namespace json = boost::json;

const json::value& getRequired(const json::object& object, std::string_view key) {
    const auto found = object.find(key);
    if (found == object.end())
        throwMissingKey(object, key);
    return found->value();
}

void findMembers(const json::object& object, std::span<const std::string_view> keys,
                 const json::value** slots) noexcept {
    // Most files have the keys in the order of the format, so each search starts after the last
    // match.
    std::size_t next = 0;
    for (const json::key_value_pair& member : object) {
        const std::string_view key = member.key();
        for (std::size_t tried = 0; tried < keys.size(); ++tried) {
            if (next == keys.size())
                next = 0;
            const std::size_t slot = next++;
            if (keys[slot] == key) {
                slots[slot] = &member.value();
                break;
            }
        }
    }
}

void throwMissingKey(const json::object& object, std::string_view key) {
    throw FormatError(&object, "the required key \"" + std::string(key) + "\" is missing");
}

std::vector<std::u16string> readTexts(const json::value* list, StringParsingType type) {
    return readEach(list, [&](const json::value& text) { return getFluString(text, type); });
}

} // namespace reference::docparser
