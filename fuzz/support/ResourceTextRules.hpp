#pragma once

#include "docparser/parsing/FormatError.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "fuzz/support/Require.hpp"

#include <boost/json/parse.hpp>
#include <boost/system/system_error.hpp>

#include <optional>
#include <string>

namespace docparser_fuzz {

/// Parses a text; empty if it is not valid JSON.
inline std::optional<boost::json::value> findDocument(const std::string& text) {
    boost::system::error_code error;
    boost::json::value document = boost::json::parse(text, error);
    if (error)
        return std::nullopt;
    return document;
}

/// Requires that the error has a position in the document, a reason and the message of both.
inline void requirePlace(const reference::docparser::FormatError& error,
                         const boost::json::value& document) {
    boost::system::error_code absent;
    require(document.find_pointer(error.getPointer(), absent) != nullptr,
            "the pointer of a format error leads to a value of the document");
    require(!error.getReason().empty(), "a format error has a reason");
    require(error.what() == error.getPointer() + ": " + error.getReason(),
            "the message of a format error is its pointer and its reason");
}

/// Requires what is true of the sections of every document.
template <class T>
void requireSections(const reference::docparser::ResourceMap<T>& sections,
                     const std::u16string& product, const std::u16string& (T::*getKey)() const) {
    require(!sections.empty(), "a valid text has a main section");
    for (const auto& [name, section] : sections) {
        require(section.header.getProduct() == product, "a header has the requested product");
        require(name == section.header.getHelpFolder() || name == section.header.getBaseCode(),
                "a section is keyed by its help folder or base code");
        for (const auto& [key, records] : section.items) {
            require(!records.empty(), "every key has a record");
            for (const T& record : records)
                require((record.*getKey)() == key, "a record has the key that it is stored under");
        }
    }
}

/// Reads a text as a resource file and requires that the result is records, a format error whose
/// position exists, or an error for invalid JSON, and that records are the same each time.
template <class T>
void requireReadOrRefused(const std::string& text,
                          reference::docparser::SectionParser<T> parseSection,
                          const std::u16string& (T::*getKey)() const) {
    using namespace reference::docparser;
    const std::u16string product = u"Orchard";
    const std::optional<boost::json::value> document = findDocument(text);
    try {
        const ResourceMap<T> sections =
            parseResourceText<T>(text, product, parseSection, unobserved);
        require(document.has_value(), "invalid JSON is rejected");
        requireSections(sections, product, getKey);
        require(sections == parseResourceText<T>(text, product, parseSection, unobserved),
                "a text gives the same records each time");
    } catch (const FormatError& error) {
        require(document.has_value(), "a format error is reported only for valid JSON");
        requirePlace(error, *document);
    } catch (const boost::system::system_error&) {
        require(!document.has_value(), "valid JSON is accepted by the JSON parser");
    }
}

} // namespace docparser_fuzz
