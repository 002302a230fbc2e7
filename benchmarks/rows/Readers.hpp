#pragma once

#include "benchmarks/peers/Peers.hpp"
#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/LookupParser.hpp"
#include "docparser/retrieval/ResourceText.hpp"

#include <array>
#include <string>
#include <utility>

namespace reference::docparser::benchmarks {

/// One way to make records of a text.
template <class T>
struct TextReader {
    const char* name;
    ResourceMap<T> (*read)(std::string text, const std::u16string& product);
};

inline ResourceMap<property::RefItem> readFullText(std::string text,
                                                   const std::u16string& product) {
    return parseResourceText<property::RefItem>(std::move(text), product, parseRefItemSection,
                                                unobserved);
}

inline ResourceMap<property::RefItemLookup> readLookupText(std::string text,
                                                           const std::u16string& product) {
    return parseResourceText<property::RefItemLookup>(std::move(text), product,
                                                      parseRefItemLookupSection, unobserved);
}

/// The other JSON libraries, the fastest to be expected first.
template <class T>
inline constexpr std::array<TextReader<T>, 3> kPeers = {{{"simdjson", readWithSimdjson<T>},
                                                         {"RapidJSON", readWithRapidJson<T>},
                                                         {"nlohmann", readWithNlohmann<T>}}};

/// The library itself.
template <class T>
inline constexpr TextReader<T> kLibrary;
template <>
inline constexpr TextReader<property::RefItem> kLibrary<property::RefItem>{"library", readFullText};
template <>
inline constexpr TextReader<property::RefItemLookup> kLibrary<property::RefItemLookup>{
    "library", readLookupText};

} // namespace reference::docparser::benchmarks
