#pragma once

#include "docparser/DocResourceParser.hpp"
#include "tools/refdoc/json/JsonWriter.hpp"

#include <string>

namespace refdoc {

// Records as JSON: every field, under its name, in the order of the record's constructor;
// enumerations as their words; maps in their own order.

/// One record.
void writeRecord(JsonWriter& json, const reference::property::RefItem& item);
void writeRecord(JsonWriter& json, const reference::property::RefItemLookup& entry);

/// The whole answer of `show`.
std::string
showDocument(const std::u16string& product,
             const reference::docparser::ResourceMap<reference::property::RefItem>& resources);

/// The whole answer of `lookup`.
std::string
lookupDocument(const reference::docparser::ParsingResults<
               reference::docparser::ResourceMap<reference::property::RefItemLookup>>& results);

} // namespace refdoc
