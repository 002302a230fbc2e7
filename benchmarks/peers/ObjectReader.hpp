#pragma once

#include "docparser/parsing/Members.hpp"
#include "docparser/parsing/StringConverters.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
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

/// Calls handle(slot, value) for each member that has one of the keys.
/// \returns  the bits of the slots that the object has
template <class Object, std::size_t N, class Handle>
std::uint32_t matchMembers(Object& object, const std::array<std::string_view, N>& keys,
                           Handle handle) {
    std::uint32_t seen = 0;
    std::size_t next = 0;
    object.forEachMember([&](const auto& key, auto value) {
        // Most files have the keys in the order of the format, so the next one is tried first.
        for (std::size_t tried = 0; tried < N; ++tried) {
            const std::size_t slot = next;
            next = next + 1 == N ? 0 : next + 1;
            if (key == keys[slot]) {
                seen |= 1U << slot;
                handle(slot, value);
                return;
            }
        }
    });
    return seen;
}

/// How readMembers() reads the value of a key.
template <Key key, bool isRequired, class Read>
struct Member {
    static constexpr std::string_view kKey = key.view();
    static constexpr bool kIsRequired = isRequired;
    Read read; ///< read(value)
};

template <Key key, class Read>
Member<key, false, Read> member(Read read) {
    return {read};
}

template <Key key, class Read>
Member<key, true, Read> required(Member<key, false, Read> optional) {
    return {optional.read};
}

/// Reads the members of an object that has few.
/// \returns  whether the object has all required members
template <class Object, class... Members>
bool readMembers(Object object, const Members&... members) {
    std::uint32_t missing = (1U << sizeof...(Members)) - 1;
    object.forEachMember([&](const auto& key, auto value) {
        std::uint32_t bit = 1;
        const auto readIfNamed = [&](const auto& member) {
            if (key == member.kKey) {
                member.read(value);
                missing &= ~bit;
                return true;
            }
            bit <<= 1;
            return false;
        };
        static_cast<void>((readIfNamed(members) || ...));
    });
    std::uint32_t bit = 1;
    std::uint32_t required = 0;
    ((required |= Members::kIsRequired ? bit : 0, bit <<= 1), ...);
    return (missing & required) == 0;
}

inline void require(bool hasAllMembers) {
    if (!hasAllMembers)
        throw std::runtime_error("a required key is missing");
}

/// Converts a string as the library does.
template <class Value>
std::u16string readText(Value value, StringParsingType type) {
    static const fl::i18n::codecvt_ascii_to_ustring ascii(/*strict=*/false);
    static const fl::i18n::codecvt_string_to_ustring utf8("utf8", /*replaceIllFormed=*/true);
    return StringConverters(ascii, utf8).convert(value.string(), type);
}

/// Returns the enumeration's default for an unknown word and for a value of another type.
template <class Enumeration, class Value>
typename Enumeration::Value readWord(Value value) {
    try {
        return Enumeration::stringToEnum(value.string());
    } catch (const std::exception&) {
        return Enumeration::getDefaultValue();
    }
}

/// Reads an array: append(element, records) appends the records of one element.
template <class Record, class Value, class Append>
std::vector<Record> appendEach(Value array, Append append) {
    std::vector<Record> records;
    records.reserve(array.count());
    array.forEachElement([&](Value element) { append(element, records); });
    return records;
}

/// Reads an array: read(element) returns the record of one element.
template <class Value, class Read>
auto readEach(Value array, Read read) {
    using Record = std::invoke_result_t<Read&, Value>;
    return appendEach<Record>(array, [&](Value element, std::vector<Record>& records) {
        records.emplace_back(InPlace([&] { return read(element); }));
    });
}

template <Key key>
auto text(std::u16string& target, StringParsingType type) {
    return member<key>([&target, type](auto value) { target = readText(value, type); });
}

template <Key key>
auto texts(std::vector<std::u16string>& target, StringParsingType type) {
    return member<key>([&target, type](auto array) {
        target = appendEach<std::u16string>(
            array, [type](auto value, auto& list) { list.push_back(readText(value, type)); });
    });
}

template <Key key, class Enumeration>
auto word(typename Enumeration::Value& target) {
    return member<key>([&target](auto value) { target = readWord<Enumeration>(value); });
}

} // namespace reference::docparser::benchmarks
