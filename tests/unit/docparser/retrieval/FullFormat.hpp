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

    /// A document that has every key, each at a value unlike its default. Its main section has the
    /// key "folder", the section of its support package "pack".
    static boost::json::value sample();

    /// What the format says of every place of the sample but the unread ones.
    static FormatRules<Record> rules();

    /// JSON pointers of places, in the sample or to be put in, whose value is never looked at.
    static std::vector<std::string> unread();

    /// Lets the sample's item document a component, so that its names are decoded.
    static void addComponent(boost::json::value& sample);
};

} // namespace docparser_tests
