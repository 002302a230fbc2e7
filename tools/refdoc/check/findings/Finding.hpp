#pragma once

#include "docparser/parsing/TextPlaces.hpp"
#include "tools/refdoc/session/SourceTexts.hpp"

#include <boost/json/value.hpp>

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
    std::optional<TextPlace> position{};  ///< known, or found by resolveLocations
    std::string item{};                   ///< itemNameAt() the pointer; by resolveLocations
};

/// Another location that a finding is about.
struct RelatedLocation {
    SourceFile file;
    Location location;
    std::string_view message; ///< a literal
};

/// Replaces a JSON string by another one, or removes byte-order marks.
struct Edit {
    Location location;       ///< where the replaced part begins
    std::string original{};  ///< the replaced part, which has no line feed; of a JSON string, read
                             ///< after its position has been found
    std::string replacement; ///< a JSON string; empty to remove
};

/// How to correct a file, if that can only mean one thing.
struct Fix {
    std::vector<Edit> edits{};               ///< of the file's text; they do not overlap
    std::optional<std::u16string> newName{}; ///< of the file or entry, in the same folder
};

/// One violation of a rule. Strings are UTF-8.
struct Finding {
    const Rule* rule;
    Location location{};
    std::string message{};  ///< starts in lower case and ends without a period
    std::string identity{}; ///< distinguishes findings of one rule in one file, independent of line
                            ///< numbers
    std::vector<RelatedLocation> related{};
    std::string cause{}; ///< what the finding is about, without its location: repeated findings of
                         ///< one rule have the same cause; empty if the message says it
    std::optional<Fix> fix{};
};

/// Findings by the file that they are in.
using Findings = std::map<SourceFile, std::vector<Finding>>;

/// The product of each file that belongs to one.
using ProductNamesByFile = std::map<SourceFile, std::u16string>;

/// Moves findings about a file into `findings`.
void addFindings(std::vector<Finding>& found, const SourceFile& file, Findings& findings);

/// Names the items of the locations that have a pointer, and finds their positions in one pass over
/// the text of their file.
/// \param document  the parsed text
void resolveLocations(std::string_view text, const boost::json::value& document,
                      const std::vector<Location*>& locations);

} // namespace refdoc::check
