#pragma once

#include "benchmarks/peers/TextConversion.hpp"
#include "docparser/parsing/DocResource.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

using namespace property;

// Building the library's records with another JSON library, the way that is best for all of them:
// one pass over the members of each object, in file order, so that a parser that only goes forward
// loses nothing. `Json` is what a library is to the readers here:
//
//   Json::Value, Json::Object               handles, cheap to copy
//   Json::object(value)                     the value as an object, else throws
//   Json::forEachMember(object, visit)      visit(key, value); key == std::string_view
//   Json::restart(object)                   lets the members be visited once more
//   Json::count(value)                      elements of an array, 0 where counting costs a scan
//   Json::forEachElement(value, visit)      visit(element) for an array, else throws
//   Json::text(value)                       bytes of a string, good until the next call; else
//   throws

/// Calls handle(slot, value) for each member whose key is known. Files mostly write the keys in the
/// format's order, so the search goes on behind the last hit.
/// \returns  a bit for each slot that the object has
template <class Json, std::size_t N, class Handle>
std::uint32_t readMembers(typename Json::Object& object,
                          const std::array<std::string_view, N>& keys, Handle handle) {
    std::uint32_t seen = 0;
    std::size_t next = 0;
    Json::forEachMember(object, [&](const auto& key, typename Json::Value value) {
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

/// \throws std::runtime_error  one of the slots was not seen
template <class... Slots>
void require(std::uint32_t seen, Slots... slots) {
    if (((seen >> slots & 1U) & ...) == 0)
        throw std::runtime_error("a required key is missing");
}

template <class Json>
std::u16string readText(typename Json::Value value, StringParsingType type) {
    return convertText(Json::text(value), type);
}

/// The word's value; the default for a word that is unknown or no string.
template <class Json, class E>
typename E::Value readWord(typename Json::Value value) {
    try {
        return E::stringToEnum(Json::text(value));
    } catch (const std::exception&) {
        return E::getDefaultValue();
    }
}

template <class Json, class Record, class Read>
std::vector<Record> readRecords(typename Json::Value array, Read read) {
    std::vector<Record> records;
    records.reserve(Json::count(array));
    Json::forEachElement(array, [&](typename Json::Value element) { read(element, records); });
    return records;
}

template <class Json>
std::vector<std::u16string> readTexts(typename Json::Value array, StringParsingType type) {
    return readRecords<Json, std::u16string>(
        array, [type](typename Json::Value element, std::vector<std::u16string>& texts) {
            texts.push_back(readText<Json>(element, type));
        });
}

} // namespace reference::docparser::benchmarks
