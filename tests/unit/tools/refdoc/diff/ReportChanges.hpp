#pragma once

#include "tools/refdoc/diff/report/DiffOutput.hpp"

#include <boost/json/parse.hpp>

#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc_tests {

/// The layout of a pipe.
inline constexpr refdoc::PageSetup kPipe{80, std::numeric_limits<std::size_t>::max(), false};

inline boost::json::value json(std::string_view text) {
    return boost::json::parse(text);
}

/// A change in the section "orchard" of the product "Orchard".
inline refdoc::diff::Change inOrchard(refdoc::diff::ChangeId id, refdoc::diff::ChangeClass type) {
    return {.id = id, .changeClass = type, .product = "Orchard", .section = "orchard"};
}

/// A changed field of the item "smooth".
inline refdoc::diff::Change smoothField(refdoc::diff::ChangeClass type, std::string field,
                                        boost::json::value oldValue, boost::json::value newValue) {
    refdoc::diff::Change change = inOrchard(refdoc::diff::ChangeId::ItemChanged, type);
    change.href = "ref/smooth.html";
    change.name = "smooth";
    change.oldField = field;
    change.field = std::move(field);
    change.oldValue = std::move(oldValue);
    change.newValue = std::move(newValue);
    return change;
}

/// One change of each id, in the order of a report.
inline std::vector<refdoc::diff::Change> changeOfEachId() {
    using namespace refdoc::diff;
    const boost::json::value section = json(R"({
        "resources": {"header": {}, "items": {"a": [{}, {}], "b": [{}]}},
        "lookup": {"header": {}, "items": {"c": [{}]}}})");
    const boost::json::value product = json(R"({
        "resources": {"orchard": {"header": {}, "items": {"a": [{}], "b": [{}]}},
                      "items": {"header": {}, "items": {"a": [{}]}}},
        "lookup": {}})");

    Change added = inOrchard(ChangeId::ProductAdded, ChangeClass::Notable);
    added.section.clear();
    added.newValue = product;
    Change removed = inOrchard(ChangeId::ProductRemoved, ChangeClass::Breaking);
    removed.section.clear();
    removed.oldValue = product;
    Change sectionAdded = inOrchard(ChangeId::SectionAdded, ChangeClass::Notable);
    sectionAdded.newValue = section;
    Change sectionRemoved = inOrchard(ChangeId::SectionRemoved, ChangeClass::Breaking);
    sectionRemoved.oldValue = json(R"({"resources": null, "lookup": null})");
    Change sectionChanged = inOrchard(ChangeId::SectionChanged, ChangeClass::Textual);
    sectionChanged.field = sectionChanged.oldField = "/helpFolder";
    sectionChanged.oldValue = "help/a";
    sectionChanged.newValue = "help/b";

    Change itemAdded = inOrchard(ChangeId::ItemAdded, ChangeClass::Notable);
    itemAdded.href = "ref/wave.html";
    itemAdded.name = "wave, ripple";
    itemAdded.newValue = json(R"({"href": "ref/wave.html"})");
    Change itemRemoved = inOrchard(ChangeId::ItemRemoved, ChangeClass::Breaking);
    itemRemoved.href = "ref/fade.html";
    itemRemoved.oldValue = json(R"({"href": "ref/fade.html"})");
    Change itemMoved = inOrchard(ChangeId::ItemMoved, ChangeClass::Breaking);
    itemMoved.href = "ref/hum.html";
    itemMoved.newHref = "ref/buzz.html";
    itemMoved.name = "hum";
    itemMoved.certainty = 87;
    itemMoved.field = itemMoved.oldField = "/href";
    itemMoved.oldValue = "ref/hum.html";
    itemMoved.newValue = "ref/buzz.html";
    Change itemChanged =
        smoothField(ChangeClass::Textual, "/refPurpose", "Shift a series", "Shift a signal");

    Change lookupAdded = inOrchard(ChangeId::LookupAdded, ChangeClass::Notable);
    lookupAdded.href = "ref/wave.html";
    lookupAdded.name = "wave";
    lookupAdded.newValue = json(R"({"name": "wave"})");
    Change lookupRemoved = inOrchard(ChangeId::LookupRemoved, ChangeClass::Breaking);
    lookupRemoved.href = "ref/fade.html";
    lookupRemoved.name = "fade";
    lookupRemoved.oldValue = json(R"({"name": "fade"})");
    Change lookupChanged = inOrchard(ChangeId::LookupChanged, ChangeClass::Notable);
    lookupChanged.href = "ref/smooth.html";
    lookupChanged.name = "smooth";
    lookupChanged.oldIndex = 0;
    lookupChanged.newIndex = 1;
    lookupChanged.field = lookupChanged.oldField = "/deprecated";
    lookupChanged.oldValue = false;
    lookupChanged.newValue = true;

    return {added,       removed,   sectionAdded, sectionRemoved, sectionChanged, itemAdded,
            itemRemoved, itemMoved, itemChanged,  lookupAdded,    lookupRemoved,  lookupChanged};
}

/// The summary of changes.
inline refdoc::diff::Summary summaryOf(const std::vector<refdoc::diff::Change>& changes) {
    refdoc::diff::Summary summary;
    for (const refdoc::diff::Change& change : changes)
        ++summary.counts.at(static_cast<std::size_t>(change.changeClass));
    return summary;
}

/// What an output prints for the changes of the product "Orchard".
inline std::string productOutput(const refdoc::diff::DiffOutput& output,
                                 std::vector<refdoc::diff::Change> changes) {
    return output.product({.product = "Orchard", .changes = std::move(changes)});
}

/// What an output prints for all of a report, with the changes of one or no product.
inline std::string wholeOutput(const refdoc::diff::DiffOutput& output,
                               const std::vector<refdoc::diff::Change>& changes,
                               std::vector<refdoc::diff::DamagedFile> damagedFiles = {}) {
    refdoc::diff::Summary summary = summaryOf(changes);
    summary.damagedFiles = std::move(damagedFiles);
    return output.head() + (changes.empty() ? "" : productOutput(output, changes)) +
           output.tail(summary);
}

} // namespace refdoc_tests
