#include "tools/refdoc/json/JsonOutput.hpp"

#include "tools/refdoc/json/RecordFields.hpp"

#include <string_view>
#include <type_traits>
#include <vector>

namespace refdoc {

using namespace reference::property;
using reference::docparser::DocResource;
using reference::docparser::ParsingResults;
using reference::docparser::ResourceMap;

namespace {

std::string_view wordOf(RefEntityType::Value value) {
    return RefEntityType::enumToString(value);
}

std::string_view wordOf(SyntaxType::Value value) {
    return SyntaxType::enumToString(value);
}

std::string_view wordOf(DeprecationStatus::Value value) {
    return DeprecationStatus::enumToString(value);
}

std::string_view wordOf(FunctionType::Value value) {
    return FunctionType::enumToString(value);
}

template <class Value>
void write(JsonWriter& json, const Value& value);

template <class T>
void write(JsonWriter& json, const std::vector<T>& elements) {
    json.beginArray();
    for (const T& element : elements)
        write(json, element);
    json.endArray();
}

// Writes a field's value; a record is written field by field.
template <class Value>
void write(JsonWriter& json, const Value& value) {
    if constexpr (std::is_same_v<Value, std::u16string>) {
        json.text(value);
    } else if constexpr (std::is_same_v<Value, bool>) {
        json.boolean(value);
    } else if constexpr (std::is_enum_v<Value>) {
        json.word(wordOf(value));
    } else {
        json.beginObject();
        visitFields(value, [&](std::string_view name, const auto& field) {
            json.key(name);
            write(json, field);
        });
        json.endObject();
    }
}

template <class T>
void writeResources(JsonWriter& json, const ResourceMap<T>& resources) {
    json.beginObject();
    for (const auto& [key, resource] : resources) {
        json.key(key);
        json.beginObject();
        json.key("header");
        write(json, resource.header);
        json.key("items");
        json.beginObject();
        for (const auto& [name, records] : resource.items) {
            json.key(name);
            write(json, records);
        }
        json.endObject();
        json.endObject();
    }
    json.endObject();
}

} // namespace

void writeRecord(JsonWriter& json, const RefItem& item) {
    write(json, item);
}

void writeRecord(JsonWriter& json, const RefItemLookup& entry) {
    write(json, entry);
}

std::string showDocument(const std::u16string& product, const ResourceMap<RefItem>& resources) {
    JsonWriter json;
    json.beginObject();
    json.member("product", product);
    json.key("resources");
    writeResources(json, resources);
    json.endObject();
    return json.take();
}

std::string lookupDocument(const ParsingResults<ResourceMap<RefItemLookup>>& results) {
    JsonWriter json;
    json.beginObject();
    json.key("installed");
    writeResources(json, results.installed);
    json.key("notInstalled");
    writeResources(json, results.notInstalled);
    json.endObject();
    return json.take();
}

} // namespace refdoc
