#pragma once

#include "docparser/parsing/ItemParts.hpp"
#include "docparser/parsing/JsonAccess.hpp"

#include <string>
#include <vector>

namespace reference::docparser {

// One reader for each array or object of a reference item. Each takes the value of the item's key,
// which is null if the item does not have it. A null array yields no records, a null thumbnail an
// empty one. Records are in file order.
//
//   href      the item's href; links to its parts start with it
//   nameType  the type of the names of inputs and properties: Utf8 if the item documents a
//             component, otherwise Ascii
//
// All throw FormatError if a value has the wrong type or a required key is missing. They only read
// the document, so threads may share it.

/// The entities that an item documents.
struct RefEntities {
    std::vector<property::RefEntity> entities;
    bool hasComponent = false; ///< whether one is a RefEntityType::Component
};

RefEntities readRefEntities(const boost::json::value* refentity);

property::AppThumbnail readAppThumbnail(const boost::json::value* appthumbnail);

std::vector<property::SyntaxGroup> readSyntaxGroups(const boost::json::value* syntaxgroup);

/// Reads the inputs of an item. An element with "namevaluepairs" is replaced by these inputs, which
/// are marked as name-value pairs; its other keys are ignored.
std::vector<property::Input> readInputs(const boost::json::value* inputs,
                                        const std::u16string& href, StringParsingType nameType);

/// Reads the titled groups of inputs. An element with "namevaluepairs" is replaced by these groups,
/// whose inputs are marked as name-value pairs; its other keys are ignored.
std::vector<property::InputGroup> readInputGroups(const boost::json::value* inputgroup,
                                                  const std::u16string& href,
                                                  StringParsingType nameType);

std::vector<property::Output> readOutputs(const boost::json::value* outputs,
                                          const std::u16string& href);

/// Reads the groups of class properties. The link to a property is href + "#prop_" + its name.
std::vector<property::ClassPropertyGroup>
readClassPropertyGroups(const boost::json::value* classpropertygroup, const std::u16string& href,
                        StringParsingType nameType);

std::vector<property::SeeAlso> readSeeAlso(const boost::json::value* seealso);

std::vector<property::Example> readExamples(const boost::json::value* examples);

std::vector<property::Parameter> readParameters(const boost::json::value* parameters,
                                                const std::u16string& href);

} // namespace reference::docparser
