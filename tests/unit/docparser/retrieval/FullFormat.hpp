#pragma once

#include "docparser/parsing/ItemParser.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "tests/unit/docparser/retrieval/FormatRules.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <vector>

namespace docparser_tests {

/// The format of full resource files.
struct FullFormat {
    using Record = reference::property::RefItem;

    static constexpr auto kParseSection = reference::docparser::parseRefItemSection;

    /// A document with every key, each with a value other than its default. The key of its main
    /// section is "folder", that of its support package "pack".
    static boost::json::value sample();

    /// The rules for every position of the sample except those in unread().
    static FormatRules<Record> rules();

    /// JSON pointers of ignored values, which the sample may or may not have.
    static std::vector<std::string> unread();

    /// Makes the item of the sample document a component, so that its names are decoded.
    static void addComponent(boost::json::value& sample);
};

} // namespace docparser_tests
