#pragma once

#include "docparser/parsing/FormatError.hpp"
#include "docparser/retrieval/ResourceText.hpp"
#include "fuzz/support/Require.hpp"

#include <boost/json/parse.hpp>
#include <boost/system/system_error.hpp>

#include <optional>
#include <string>

namespace docparser_fuzz {

/// The document in the text, or nothing if it is not valid JSON.
inline std::optional<boost::json::value> findDocument(const std::string& text) {
    boost::system::error_code error;
    boost::json::value document = boost::json::parse(text, error);
    if (error)
        return std::nullopt;
    return document;
}

/// Requires that the error says where in the document it stood.
inline void requirePlace(const reference::docparser::FormatError& error,
                         const boost::json::value& document) {
    boost::system::error_code absent;
    require(document.find_pointer(error.getPointer(), absent) != nullptr,
            "the pointer of a format error leads to a place in the document");
    require(!error.getReason().empty(), "a format error has a reason");
    require(error.what() == error.getPointer() + ": " + error.getReason(),
            "a format error says its pointer and its reason");
}

/// Requires that the sections hold what the document says, as far as any section does.
template <class T>
void requireSections(const reference::docparser::ResourceMap<T>& sections,
                     const std::u16string& product, const std::u16string& (T::*getKey)() const) {
    require(!sections.empty(), "a text that is read has its main section");
    for (const auto& [name, section] : sections) {
        require(section.header.getProduct() == product, "a header names the product asked for");
        require(name == section.header.getHelpFolder() || name == section.header.getBaseCode(),
                "a section is keyed by its help folder or base code");
        for (const auto& [key, records] : section.items) {
            require(!records.empty(), "no key is without records");
            for (const T& record : records)
                require((record.*getKey)() == key, "a record is kept under its own key");
        }
    }
}

/// Reads the text as a resource file and requires that it ends in records, in a format error whose
/// position exists, or in an error for invalid JSON, and in the same one each time.
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
        require(document.has_value(), "invalid JSON is refused");
        requireSections(sections, product, getKey);
        require(sections == parseResourceText<T>(text, product, parseSection, unobserved),
                "a text is read the same each time");
    } catch (const FormatError& error) {
        require(document.has_value(), "invalid JSON has no position to point to");
        requirePlace(error, *document);
    } catch (const boost::system::system_error&) {
        require(!document.has_value(), "JSON is never taken for anything else");
    }
}

} // namespace docparser_fuzz
