#pragma once

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/check/rules/Rules.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <optional>
#include <string>
#include <vector>

namespace refdoc::check {

using reference::docparser::TextPlace;

/// Where something stands: a file as a whole, a value of its text, or a place of its text.
struct Spot {
    SourceFile file{};
    std::optional<std::string> pointer{}; ///< JSON pointer to a value
    bool isAtKey = false;                 ///< the key of the value is meant
    std::optional<TextPlace> place{};     ///< known at once, or found through the pointer
};

/// Something else that a finding is about.
struct RelatedSpot {
    Spot spot;
    std::string message;
};

/// One thing that was found. Texts are UTF-8.
struct Finding {
    RuleId rule;
    Spot spot;
    std::string message;    ///< starts in lower case and ends without a period
    std::string identity{}; ///< what tells it from others of the rule in the file, whatever lines
                            ///< are put before it
    std::vector<RelatedSpot> related{};
};

} // namespace refdoc::check
