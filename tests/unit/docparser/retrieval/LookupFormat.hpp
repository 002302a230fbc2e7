#pragma once

#include "docparser/parsing/LookupParser.hpp"
#include "docparser/parsing/RefItemLookup.hpp"
#include "tests/unit/docparser/retrieval/FormatRules.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <vector>

namespace docparser_tests {

/// The format of lookup files; the members are those of FullFormat.
struct LookupFormat {
    using Record = reference::property::RefItemLookup;

    static constexpr auto kParseSection = reference::docparser::parseRefItemLookupSection;

    static boost::json::value sample();
    static FormatRules<Record> rules();
    static std::vector<std::string> unread();
    static void addComponent(boost::json::value& sample);
};

} // namespace docparser_tests
