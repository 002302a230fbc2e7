#pragma once

#include "docparser/parsing/Members.hpp"
#include "docparser/parsing/StringConverters.hpp"
#include "platform/Failure.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

// Reading JSON objects with any library, in the way that is best for all of them: one pass over the
// members in file order. A library's adapter is a type for values, cheap to copy. An operation
// throws if the value has another type.
//
//   value.string()                 the bytes of a string
//   value.count()                  elements of an array; 0 if counting takes a pass
//   value.forEachElement(visit)    visit(element)
//   value.object()                 the object
//   object.forEachMember(visit)    visit(key, value), where key == std::string_view
//   object.restart()               permits another pass

/// A member that a reader looks up in an object.
template <Key key, class T, class Read>
struct Member {
    static constexpr std::string_view kKey = key.view();

    Read read; ///< makes a T from the JSON value
    T value{}; ///< unchanged if the object lacks the key
};

template <Key key, class T, class Read>
Member<key, T, Read> member(Read read) {
    return {std::move(read)};
}

template <Key key, class T, class Read>
Member<key, T, Read> member(Read read, T absent) {
    return {std::move(read), std::move(absent)};
}

/// Reads the values of members in one pass over an object. List the members in the order of the
/// format: objects that have their keys in this order are read fastest.
template <class Object, class... Members>
void readMembers(Object&& object, Members&... members) {
    std::size_t next = 0;
    object.forEachMember([&](const auto& key, auto value) {
        for (const std::size_t first : {next, std::size_t{0}}) {
            std::size_t slot = 0;
            const auto readIfNamed = [&](auto& member) {
                if (slot++ < first || !(key == member.kKey))
                    return false;
                member.value = member.read(value);
                next = slot;
                return true;
            };
            if ((readIfNamed(members) || ...))
                return;
        }
    });
}

/// Makes a record from the values of members, in the order of the arguments.
template <class Record, class Value, class... Members>
Record readRecord(Value element, Members... members) {
    readMembers(element.object(), members...);
    return {std::move(members.value)...};
}

/// Converts a string as the library does.
template <class Value>
std::u16string readText(Value value, StringParsingType type) {
    static const fl::i18n::codecvt_ascii_to_ustring ascii(/*strict=*/false);
    static const fl::i18n::codecvt_string_to_ustring utf8("utf8", /*replaceIllFormed=*/true);
    return StringConverters(ascii, utf8).convert(value.string(), type);
}

template <Key key>
auto text(StringParsingType type) {
    return member<key, std::u16string>([type](auto value) { return readText(value, type); });
}

/// A string that names an enumeration value. The result is the enumeration's default for an unknown
/// string and for a value of another type.
template <Key key, class Enumeration>
auto word() {
    return member<key>(
        [](auto value) {
            auto result = Enumeration::getDefaultValue();
            platform::ignoreFailure([&] { result = Enumeration::stringToEnum(value.string()); });
            return result;
        },
        Enumeration::getDefaultValue());
}

/// An array: append(element, records) appends the records of one element.
template <Key key, class Record, class Append>
auto appendedList(Append append) {
    return member<key, std::vector<Record>>([append](auto array) {
        std::vector<Record> records;
        records.reserve(array.count());
        array.forEachElement([&](auto element) { append(element, records); });
        return records;
    });
}

/// An array: read(element) returns the record of one element.
template <Key key, class Record, class Read>
auto list(Read read) {
    return appendedList<key, Record>([read](auto element, std::vector<Record>& records) {
        records.emplace_back(InPlace([&] { return read(element); }));
    });
}

template <Key key>
auto texts(StringParsingType type) {
    return list<key, std::u16string>([type](auto value) { return readText(value, type); });
}

} // namespace reference::docparser::benchmarks
