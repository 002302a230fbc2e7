#include "tools/refdoc/JsonOutput.hpp"

#include <vector>

namespace refdoc {

using namespace reference::property;
using reference::docparser::DocResource;
using reference::docparser::ParsingResults;
using reference::docparser::ResourceMap;

namespace {

// One write() a record; writeList() finds them for the elements of a vector.

void write(JsonWriter& json, const std::u16string& text) {
    json.text(text);
}

template <class T>
void writeList(JsonWriter& json, std::string_view name, const std::vector<T>& elements);

template <class Enumeration>
void writeWord(JsonWriter& json, std::string_view name, typename Enumeration::Value value) {
    json.key(name);
    json.word(Enumeration::enumToString(value));
}

void write(JsonWriter& json, const HeaderInfo& header) {
    json.beginObject();
    json.member("schema", header.getSchema());
    json.member("schemaVersion", header.getSchemaVersion());
    json.member("productName", header.getProductName());
    json.member("baseCode", header.getBaseCode());
    json.member("helpFolder", header.getHelpFolder());
    json.member("helpLocation", header.getHelpLocation());
    json.member("product", header.getProduct());
    json.endObject();
}

void write(JsonWriter& json, const RefEntity& entity) {
    json.beginObject();
    writeWord<RefEntityType>(json, "entityType", entity.getEntityType());
    json.member("name", entity.getName());
    writeWord<FunctionType>(json, "functionType", entity.getFunctionType());
    json.endObject();
}

void write(JsonWriter& json, const AppThumbnail& thumbnail) {
    json.beginObject();
    json.member("fileRef", thumbnail.getFileRef());
    json.member("alt", thumbnail.getAlt());
    json.endObject();
}

void write(JsonWriter& json, const SyntaxGroup& group) {
    json.beginObject();
    json.member("title", group.getTitle());
    writeWord<SyntaxType>(json, "syntaxType", group.getSyntaxType());
    writeList(json, "syntaxes", group.getSyntaxes());
    json.endObject();
}

void writeObjectInfo(JsonWriter& json, const ObjectInfo& info) {
    json.key("objectInfo");
    json.beginObject();
    json.member("name", info.getName());
    json.member("purpose", info.getPurpose());
    writeList(json, "values", info.getValues());
    json.member("href", info.getHref());
    json.endObject();
}

void write(JsonWriter& json, const Input& input) {
    json.beginObject();
    writeObjectInfo(json, input.getObjectInfo());
    writeWord<SyntaxType>(json, "syntaxType", input.getSyntaxType());
    json.member("defaultValue", input.getDefaultValue());
    json.key("isNameValuePair");
    json.boolean(input.getIsNameValuePair());
    json.endObject();
}

void write(JsonWriter& json, const InputGroup& group) {
    json.beginObject();
    json.member("title", group.getTitle());
    writeList(json, "inputs", group.getInputs());
    json.endObject();
}

void write(JsonWriter& json, const Output& output) {
    json.beginObject();
    writeObjectInfo(json, output.getObjectInfo());
    writeWord<SyntaxType>(json, "syntaxType", output.getSyntaxType());
    json.endObject();
}

template <class Described> // Parameter or ClassProperty
void writeDescribed(JsonWriter& json, const Described& described) {
    json.beginObject();
    writeObjectInfo(json, described.getObjectInfo());
    json.member("defaultValue", described.getDefaultValue());
    json.endObject();
}

void write(JsonWriter& json, const Parameter& parameter) {
    writeDescribed(json, parameter);
}

void write(JsonWriter& json, const ClassProperty& property) {
    writeDescribed(json, property);
}

void write(JsonWriter& json, const ClassPropertyGroup& group) {
    json.beginObject();
    json.member("title", group.getTitle());
    writeList(json, "properties", group.getProperties());
    json.endObject();
}

void write(JsonWriter& json, const SeeAlso& link) {
    json.beginObject();
    json.member("url", link.getUrl());
    json.member("name", link.getName());
    json.endObject();
}

void write(JsonWriter& json, const Example& example) {
    json.beginObject();
    json.member("url", example.getUrl());
    json.member("openCommand", example.getOpenCommand());
    json.member("title", example.getTitle());
    json.endObject();
}

void write(JsonWriter& json, const RefItem& item) {
    json.beginObject();
    json.member("href", item.getHref());
    writeList(json, "refEntities", item.getRefEntities());
    json.member("packageName", item.getPackageName());
    json.member("refPurpose", item.getRefPurpose());
    json.member("introduced", item.getIntroduced());
    json.member("description", item.getDescription());
    json.key("appThumbnail");
    write(json, item.getAppThumbnail());
    writeWord<DeprecationStatus>(json, "deprecationStatus", item.getDeprecationStatus());
    writeList(json, "syntaxGroups", item.getSyntaxGroups());
    writeList(json, "inputs", item.getInputs());
    writeList(json, "inputGroups", item.getInputGroups());
    writeList(json, "outputs", item.getOutputs());
    writeList(json, "classPropertyGroups", item.getClassPropertyGroups());
    writeList(json, "seeAlso", item.getSeeAlso());
    writeList(json, "examples", item.getExamples());
    writeList(json, "parameters", item.getParameters());
    json.endObject();
}

void write(JsonWriter& json, const RefItemLookup& entry) {
    json.beginObject();
    json.member("name", entry.getName());
    writeWord<RefEntityType>(json, "entityType", entry.getEntityType());
    json.member("refPurpose", entry.getRefPurpose());
    json.key("deprecated");
    json.boolean(entry.getDeprecated());
    json.member("href", entry.getHref());
    writeWord<FunctionType>(json, "functionType", entry.getFunctionType());
    json.endObject();
}

template <class T>
void writeElements(JsonWriter& json, const std::vector<T>& elements) {
    json.beginArray();
    for (const T& element : elements)
        write(json, element);
    json.endArray();
}

template <class T>
void writeList(JsonWriter& json, std::string_view name, const std::vector<T>& elements) {
    json.key(name);
    writeElements(json, elements);
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
            writeElements(json, records);
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
