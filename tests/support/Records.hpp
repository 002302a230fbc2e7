#pragma once

#include "docparser/parsing/RefItem.hpp"

#include <string>
#include <utility>
#include <vector>

namespace docparser_tests {

/// The fields of a RefItem by name. The defaults are those of a file without the optional keys:
///
///     const RefItem item = makeRefItem({.href = u"graft.html", .refPurpose = u"Join trees"});
struct RefItemFields {
    std::u16string href{};
    std::vector<reference::property::RefEntity> refEntities{};
    std::u16string packageName{};
    std::u16string refPurpose{};
    std::u16string introduced{};
    std::u16string description{};
    reference::property::AppThumbnail appThumbnail{u"", u""};
    reference::property::DeprecationStatus::Value deprecationStatus =
        reference::property::DeprecationStatus::None;
    std::vector<reference::property::SyntaxGroup> syntaxGroups{};
    std::vector<reference::property::Input> inputs{};
    std::vector<reference::property::InputGroup> inputGroups{};
    std::vector<reference::property::Output> outputs{};
    std::vector<reference::property::ClassPropertyGroup> classPropertyGroups{};
    std::vector<reference::property::SeeAlso> seeAlso{};
    std::vector<reference::property::Example> examples{};
    std::vector<reference::property::Parameter> parameters{};
};

/// Builds an item in place at the end of a vector.
inline void appendRefItem(std::vector<reference::property::RefItem>& items,
                          RefItemFields&& fields) {
    items.emplace_back(
        std::move(fields.href), std::move(fields.refEntities), std::move(fields.packageName),
        std::move(fields.refPurpose), std::move(fields.introduced), std::move(fields.description),
        std::move(fields.appThumbnail), fields.deprecationStatus, std::move(fields.syntaxGroups),
        std::move(fields.inputs), std::move(fields.inputGroups), std::move(fields.outputs),
        std::move(fields.classPropertyGroups), std::move(fields.seeAlso),
        std::move(fields.examples), std::move(fields.parameters));
}

inline reference::property::RefItem makeRefItem(RefItemFields fields) {
    std::vector<reference::property::RefItem> items;
    appendRefItem(items, std::move(fields));
    return std::move(items.front());
}

} // namespace docparser_tests
