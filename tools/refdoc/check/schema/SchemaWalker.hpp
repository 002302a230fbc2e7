#pragma once

#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/check/schema/Schema.hpp"

#include <boost/json/value.hpp>

#include <string>
#include <vector>

namespace refdoc::check {

/// Something in a document that its schema does not foresee, or foresees with a warning.
struct ContentFinding {
    RuleId rule;
    std::string pointer; ///< JSON pointer to the value
    bool isAtKey;        ///< the key of the value is meant
    std::string message;
    std::string identity; ///< the way to the value, elements named by what identifies them
};

/// Walks over a whole document, in its order. Cost: a test or two for each value; messages and
/// pointers are made for findings only.
std::vector<ContentFinding> walkDocument(const Schema& schema, const boost::json::value& document);

} // namespace refdoc::check
