#pragma once

#include "docparser/parsing/ItemParts.hpp"
#include "docparser/parsing/JsonAccess.hpp"

#include <string>
#include <vector>

namespace reference::docparser {

// One reader per array or object that a reference item may hold. Each takes the value under the
// item's key, null when the item lacks it: no array means no records, no thumbnail an empty one.
// Records come in file order.
//
//   href      the item's href, which the links to its parts start with
//   nameType  how the names of inputs and properties are read; text beyond ASCII is expected in
//             them only where the item documents a component
//
// All throw FormatError when the value, or one of its elements, has the wrong kind or lacks a
// required key. They only read the document, so any number of threads may share it.

/// The entities that an item documents.
struct RefEntities {
    std::vector<property::RefEntity> entities;
    bool hasComponent = false; ///< one of them is a RefEntityType::Component
};

RefEntities readRefEntities(const boost::json::value* refentity);

property::AppThumbnail readAppThumbnail(const boost::json::value* appthumbnail);

std::vector<property::SyntaxGroup> readSyntaxGroups(const boost::json::value* syntaxgroup);

/// The inputs of an item. An element with "namevaluepairs" contributes the pairs and nothing of
/// its own; they stand among the other inputs, marked as name-value pairs.
std::vector<property::Input> readInputs(const boost::json::value* inputs,
                                        const std::u16string& href, StringParsingType nameType);

/// The titled groups of inputs. An element with "namevaluepairs" contributes one group for each
/// element of that array, its inputs marked as name-value pairs, and nothing of its own.
std::vector<property::InputGroup> readInputGroups(const boost::json::value* inputgroup,
                                                  const std::u16string& href,
                                                  StringParsingType nameType);

std::vector<property::Output> readOutputs(const boost::json::value* outputs,
                                          const std::u16string& href);

/// The groups of properties. A property's link is formed from its name: href + "#prop_" + name.
std::vector<property::ClassPropertyGroup>
readClassPropertyGroups(const boost::json::value* classpropertygroup, const std::u16string& href,
                        StringParsingType nameType);

std::vector<property::SeeAlso> readSeeAlso(const boost::json::value* seealso);

std::vector<property::Example> readExamples(const boost::json::value* examples);

std::vector<property::Parameter> readParameters(const boost::json::value* parameters,
                                                const std::u16string& href);

} // namespace reference::docparser
