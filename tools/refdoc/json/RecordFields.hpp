#pragma once

#include "docparser/parsing/HeaderInfo.hpp"
#include "docparser/parsing/RefItem.hpp"
#include "docparser/parsing/RefItemLookup.hpp"

namespace refdoc {

namespace property = reference::property;

// Each function calls visit(name, value) for every field of a record, in the order of the record's
// constructor. What is done with all fields alike, such as output, needs no other list of them.

template <class Visit>
void visitFields(const property::HeaderInfo& header, Visit visit) {
    visit("schema", header.getSchema());
    visit("schemaVersion", header.getSchemaVersion());
    visit("productName", header.getProductName());
    visit("baseCode", header.getBaseCode());
    visit("helpFolder", header.getHelpFolder());
    visit("helpLocation", header.getHelpLocation());
    visit("product", header.getProduct());
}

template <class Visit>
void visitFields(const property::RefEntity& entity, Visit visit) {
    visit("entityType", entity.getEntityType());
    visit("name", entity.getName());
    visit("functionType", entity.getFunctionType());
}

template <class Visit>
void visitFields(const property::AppThumbnail& thumbnail, Visit visit) {
    visit("fileRef", thumbnail.getFileRef());
    visit("alt", thumbnail.getAlt());
}

template <class Visit>
void visitFields(const property::SyntaxGroup& group, Visit visit) {
    visit("title", group.getTitle());
    visit("syntaxType", group.getSyntaxType());
    visit("syntaxes", group.getSyntaxes());
}

template <class Visit>
void visitFields(const property::ObjectInfo& info, Visit visit) {
    visit("name", info.getName());
    visit("purpose", info.getPurpose());
    visit("values", info.getValues());
    visit("href", info.getHref());
}

template <class Visit>
void visitFields(const property::Input& input, Visit visit) {
    visit("objectInfo", input.getObjectInfo());
    visit("syntaxType", input.getSyntaxType());
    visit("defaultValue", input.getDefaultValue());
    visit("isNameValuePair", input.getIsNameValuePair());
}

template <class Visit>
void visitFields(const property::InputGroup& group, Visit visit) {
    visit("title", group.getTitle());
    visit("inputs", group.getInputs());
}

template <class Visit>
void visitFields(const property::Output& output, Visit visit) {
    visit("objectInfo", output.getObjectInfo());
    visit("syntaxType", output.getSyntaxType());
}

template <class Visit>
void visitFields(const property::Parameter& parameter, Visit visit) {
    visit("objectInfo", parameter.getObjectInfo());
    visit("defaultValue", parameter.getDefaultValue());
}

template <class Visit>
void visitFields(const property::ClassProperty& classProperty, Visit visit) {
    visit("objectInfo", classProperty.getObjectInfo());
    visit("defaultValue", classProperty.getDefaultValue());
}

template <class Visit>
void visitFields(const property::ClassPropertyGroup& group, Visit visit) {
    visit("title", group.getTitle());
    visit("properties", group.getProperties());
}

template <class Visit>
void visitFields(const property::SeeAlso& link, Visit visit) {
    visit("url", link.getUrl());
    visit("name", link.getName());
}

template <class Visit>
void visitFields(const property::Example& example, Visit visit) {
    visit("url", example.getUrl());
    visit("openCommand", example.getOpenCommand());
    visit("title", example.getTitle());
}

template <class Visit>
void visitFields(const property::RefItem& item, Visit visit) {
    visit("href", item.getHref());
    visit("refEntities", item.getRefEntities());
    visit("packageName", item.getPackageName());
    visit("refPurpose", item.getRefPurpose());
    visit("introduced", item.getIntroduced());
    visit("description", item.getDescription());
    visit("appThumbnail", item.getAppThumbnail());
    visit("deprecationStatus", item.getDeprecationStatus());
    visit("syntaxGroups", item.getSyntaxGroups());
    visit("inputs", item.getInputs());
    visit("inputGroups", item.getInputGroups());
    visit("outputs", item.getOutputs());
    visit("classPropertyGroups", item.getClassPropertyGroups());
    visit("seeAlso", item.getSeeAlso());
    visit("examples", item.getExamples());
    visit("parameters", item.getParameters());
}

template <class Visit>
void visitFields(const property::RefItemLookup& entry, Visit visit) {
    visit("name", entry.getName());
    visit("entityType", entry.getEntityType());
    visit("refPurpose", entry.getRefPurpose());
    visit("deprecated", entry.getDeprecated());
    visit("href", entry.getHref());
    visit("functionType", entry.getFunctionType());
}

} // namespace refdoc
