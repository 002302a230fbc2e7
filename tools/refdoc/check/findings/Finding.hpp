#pragma once

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::check {

using reference::docparser::TextPlace;

/// How much a finding matters. Errors cost a file, a section or a product; warnings cost or change
/// less; notes are for the reader to judge.
enum class Severity { Note, Warning, Error };

/// Returns "note", "warning" or "error".
std::string_view toWord(Severity severity) noexcept;

/// How findings of a rule are related to findings in other files. Causes cost content, and whatever
/// refers to that content is reported as well.
enum class Relation {
    None,                 ///< an error is a cause: it costs content of the type of its folder
    CostsProduct,         ///< a cause: it costs full resources and lookup records of its product
    MisnamesProduct,      ///< a cause: the library reads the file under the name of another product
    CostsRoot,            ///< a cause: it costs content of many products
    Independent,          ///< an error that is not a cause
    FollowsFromResources, ///< follows from errors in full resources
    FollowsFromLookups,   ///< follows from errors in lookup files
    FollowsFromAny        ///< follows from errors in either
};

/// What can be wrong with a file. Each rule is one constant, next to the code that detects it;
/// rules are compared by address.
struct Rule {
    std::string_view name; ///< never changes between versions: "missing-key"
    Severity severity;
    std::string_view summary;     ///< what is wrong, in one line without a period
    std::string_view explanation; ///< Markdown: what the library does, and how to fix the file
    Relation relation = Relation::None;
};

/// A location in a file: the whole file, a value of its JSON text, or a position in the text.
struct Location {
    std::optional<std::string> pointer{}; ///< JSON pointer to the value
    bool isAtKey = false;                 ///< the position is that of the value's key
    std::optional<TextPlace> position{};  ///< known, or found by findPositions
};

/// Another location that a finding is about.
struct RelatedLocation {
    SourceFile file;
    Location location;
    std::string_view message; ///< a literal
};

/// One violation of a rule. Strings are UTF-8.
struct Finding {
    const Rule* rule;
    Location location{};
    std::string message{};  ///< starts in lower case and ends without a period
    std::string identity{}; ///< distinguishes findings of one rule in one file, independent of line
                            ///< numbers
    std::vector<RelatedLocation> related{};
};

/// Findings by the file that they are in.
using Findings = std::map<SourceFile, std::vector<Finding>>;

/// Moves findings about a file into `findings`.
void addFindings(std::vector<Finding>& found, const SourceFile& file, Findings& findings);

/// Finds the positions of the locations that have a pointer, in one pass over the text of their
/// file.
void findPositions(std::string_view text, const std::vector<Location*>& locations);

} // namespace refdoc::check
