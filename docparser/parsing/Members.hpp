#pragma once

#include "docparser/parsing/JsonAccess.hpp"
#include "platform/Failure.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference::docparser {

/// The value under a key.
/// \throws FormatError  the object has no such key
const boost::json::value& getRequired(const boost::json::object& object, std::string_view key);

/// Looks the keys of a reader up in one pass over the object.
/// \param slots  as many as there are keys; those of the keys that the object has are set, the
///               others left alone
void findMembers(const boost::json::object& object, std::span<const std::string_view> keys,
                 const boost::json::value** slots) noexcept;

/// \throws FormatError  always: the object lacks the key
[[noreturn]] void throwMissingKey(const boost::json::object& object, std::string_view key);

/// The keys that a reader knows, in the order of its slots.
template <class... Names>
constexpr std::array<std::string_view, sizeof...(Names)> keys(Names... names) {
    return {std::string_view(names)...};
}

/// The members of one object that a reader knows. An object of the format has few members and
/// mostly all that its reader asks for, so one pass over them beats a search for each key.
template <std::size_t N>
class Members {
public:
    /// \param element  the object to read
    /// \param known    the reader's keys; they outlive this
    /// \throws FormatError  the element is not an object
    Members(const boost::json::value& element, const std::array<std::string_view, N>& known)
        : object_(getJsonObject(element)), keys_(known) {
        findMembers(object_, known, slots_.data());
    }

    /// The value in a slot; null when the object lacks the key.
    const boost::json::value* operator[](std::size_t slot) const noexcept { return slots_[slot]; }

    /// The value in a slot that the format requires.
    const boost::json::value& required(std::size_t slot) const {
        if (!slots_[slot])
            throwMissingKey(object_, keys_[slot]);
        return *slots_[slot];
    }

    /// The text in a slot that the format requires.
    std::u16string text(std::size_t slot, StringParsingType type) const {
        return getFluString(required(slot), type);
    }

    /// The text in a slot; empty when the object lacks the key.
    std::u16string optionalText(std::size_t slot, StringParsingType type) const {
        return slots_[slot] ? getFluString(*slots_[slot], type) : std::u16string();
    }

    /// The word in a slot as a value of the enumeration E. A word that E does not know, a value
    /// that is no string and an absent key are all E's default: the format lets words be added.
    template <class E>
    typename E::Value word(std::size_t slot) const {
        typename E::Value result = E::getDefaultValue();
        if (slots_[slot])
            platform::ignoreFailure(
                [&] { result = E::stringToEnum(std::string_view(slots_[slot]->as_string())); });
        return result;
    }

private:
    const boost::json::object& object_;
    const std::array<std::string_view, N>& keys_;
    std::array<const boost::json::value*, N> slots_{};
};

/// How many records a vector makes room for at most before the first of them has been read. A few
/// bytes of a hostile file can announce a record of many, and nothing is known of it yet.
inline constexpr std::size_t kMostReserved = 4096;

/// Reads every element of an array that may be absent.
/// \param list  the array; null when the item has none
/// \param read  read(element, records) appends what the element holds to `records`
/// \returns     the records in file order
/// \throws FormatError  `list` is not an array; whatever `read` throws
template <class Record, class Read>
std::vector<Record> readEach(const boost::json::value* list, Read read) {
    std::vector<Record> records;
    if (!list)
        return records;
    const boost::json::array& elements = getJsonArray(*list);
    records.reserve(std::min(elements.size(), kMostReserved));
    for (const boost::json::value& element : elements)
        read(element, records);
    return records;
}

/// Reads an array of strings that may be absent.
std::vector<std::u16string> readTexts(const boost::json::value* list, StringParsingType type);

} // namespace reference::docparser
