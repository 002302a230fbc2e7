#pragma once

#include "docparser/parsing/JsonAccess.hpp"
#include "platform/Failure.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace reference::docparser {

/// Returns the value under a required key.
/// \throws FormatError  the object does not have the key
const boost::json::value& getRequired(const boost::json::object& object, std::string_view key);

/// Finds the values of several keys in one pass over an object.
/// \param slots  one for each key; set for each key that the object has, otherwise unchanged
void findMembers(const boost::json::object& object, std::span<const std::string_view> keys,
                 const boost::json::value** slots) noexcept;

/// \throws FormatError  always: `object` does not have the required key
[[noreturn]] void throwMissingKey(const boost::json::object& object, std::string_view key);

/// A JSON key as a template argument: a string literal converts to it.
template <std::size_t Size>
struct Key {
    consteval Key(const char (&literal)[Size]) { std::copy_n(literal, Size, characters); }

    constexpr std::string_view view() const { return {characters, Size - 1}; }

    char characters[Size]; // public, as a template argument requires
};

/// The keys that a reader looks up in an object. List them in the order of the format: objects
/// that have their keys in this order are read fastest.
template <Key... known>
struct Keys {
    static constexpr std::array<std::string_view, sizeof...(known)> kNames{known.view()...};

    /// Returns the position of a key. Does not compile for a key that is not listed.
    template <Key key>
    static consteval std::size_t slotOf() {
        constexpr auto found = std::ranges::find(kNames, key.view());
        static_assert(found != kNames.end(), "the list of keys lacks this key");
        return static_cast<std::size_t>(found - kNames.begin());
    }
};

/// The members of one JSON object that a reader looks up:
///
///     const Members<Keys<"url", "name">> link(element);
///     std::u16string url = link.text<"url">(StringParsingType::Ascii);
///
/// Most objects of the format have few members, nearly all of them listed, so that one pass over
/// the object is faster than a search for each key. The document must outlive this object.
template <class KnownKeys>
class Members {
public:
    /// \throws FormatError  `element` is not an object
    explicit Members(const boost::json::value& element) : object_(getJsonObject(element)) {
        findMembers(object_, KnownKeys::kNames, slots_.data());
    }

    /// Returns the value of an optional key; null if the object does not have it.
    template <Key key>
    const boost::json::value* value() const noexcept {
        return slots_[KnownKeys::template slotOf<key>()];
    }

    /// Returns the value of a required key.
    /// \throws FormatError  the object does not have the key
    template <Key key>
    const boost::json::value& required() const {
        if (!value<key>())
            throwMissingKey(object_, key.view());
        return *value<key>();
    }

    /// Returns the string of a required key.
    /// \throws FormatError  the object does not have the key, or its value is not a string
    template <Key key>
    std::u16string text(StringParsingType type) const {
        return getFluString(required<key>(), type);
    }

    /// Returns the string of an optional key; empty if the object does not have it.
    /// \throws FormatError  the value is not a string
    template <Key key>
    std::u16string optionalText(StringParsingType type) const {
        return value<key>() ? getFluString(*value<key>(), type) : std::u16string();
    }

    /// Returns the enumeration value that an optional key's string names. The result is the
    /// enumeration's default if the key is absent, its value is not a string, or the string is
    /// unknown: new strings may be added to the format.
    template <class E, Key key>
    typename E::Value word() const {
        typename E::Value result = E::getDefaultValue();
        if (const boost::json::value* word = value<key>())
            platform::ignoreFailure(
                [&] { result = E::stringToEnum(std::string_view(word->as_string())); });
        return result;
    }

private:
    const boost::json::object& object_;
    std::array<const boost::json::value*, KnownKeys::kNames.size()> slots_{};
};

/// Lets a container construct an element in place from what a function returns:
///
///     inputs.emplace_back(InPlace([&] { return readInput(input, style); }));
///
/// The element is then neither moved nor copied into the container.
template <class Make>
class InPlace {
public:
    explicit InPlace(Make make) : make_(std::move(make)) {}

    operator std::invoke_result_t<Make&>() { return make_(); }

private:
    Make make_;
};

/// The largest number of records that a vector reserves memory for before the first one is read.
/// A few bytes of a hostile file can announce a million records.
inline constexpr std::size_t kMostReserved = 4096;

/// Reads an optional array whose elements may stand for any number of records.
/// \param list    the array; null if the item does not have it, which means no records
/// \param append  called as append(element, records) to append the records of one element
/// \returns       the records in file order
/// \throws FormatError  `list` is not an array; also whatever `append` throws
template <class Record, class Append>
std::vector<Record> appendEach(const boost::json::value* list, Append append) {
    std::vector<Record> records;
    if (!list)
        return records;
    const boost::json::array& elements = getJsonArray(*list);
    records.reserve(std::min(elements.size(), kMostReserved));
    for (const boost::json::value& element : elements)
        append(element, records);
    return records;
}

/// Reads an optional array of records.
/// \param list  the array; null if the item does not have it, which means no records
/// \param read  called as read(element); returns the record of one element
/// \returns     the records in file order
/// \throws FormatError  `list` is not an array; also whatever `read` throws
template <class Read>
auto readEach(const boost::json::value* list, Read read) {
    using Record = std::invoke_result_t<Read&, const boost::json::value&>;
    return appendEach<Record>(list,
                              [&](const boost::json::value& element, std::vector<Record>& records) {
                                  records.emplace_back(InPlace([&] { return read(element); }));
                              });
}

/// Reads an optional array of strings; null means no strings.
/// \throws FormatError  `list` is not an array, or an element is not a string
std::vector<std::u16string> readTexts(const boost::json::value* list, StringParsingType type);

} // namespace reference::docparser
