#pragma once

#include "docparser/json/RecordFields.hpp"
#include "docparser/json/ToJson.hpp"

#include <string>

namespace reference::json {

/// Returns the document of all records of a product: "show" in refdoc-output.schema.json.
/// \param storage  as in toJson()
inline boost::json::value
productDocument(const std::u16string& product,
                const docparser::ResourceMap<property::RefItem>& resources,
                const boost::json::storage_ptr& storage = {}) {
    boost::json::object document(storage);
    document.emplace("product", toJson(product, storage));
    document.emplace("resources", toJson(resources, storage));
    return document;
}

} // namespace reference::json
