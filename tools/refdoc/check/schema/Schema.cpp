#include "tools/refdoc/check/schema/Schema.hpp"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <utility>

namespace refdoc::check {

namespace json = boost::json;

namespace {

std::string textOf(const json::value& value) {
    return std::string(value.as_string());
}

std::vector<std::string> textsOf(const json::value& values) {
    std::vector<std::string> texts;
    for (const json::value& value : values.as_array())
        texts.push_back(textOf(value));
    return texts;
}

bool hasText(const json::object& source, std::string_view key, std::string_view text) {
    const json::value* value = source.if_contains(key);
    return value && value->is_string() && value->as_string() == text;
}

void fillWords(SchemaNode& node, const json::object& source) {
    const json::value* branches = source.if_contains("anyOf");
    if (!branches)
        return;
    node.words = textsOf(branches->as_array().at(0).at("enum"));
    node.defaultWord = textOf(source.at("default"));
}

} // namespace

const SchemaMember* SchemaNode::find(std::string_view key) const noexcept {
    const auto found = std::ranges::find(members, key, &SchemaMember::key);
    return found == members.end() ? nullptr : &*found;
}

Schema::Schema(std::string_view text)
    : document_(json::parse(text)), root_(compile(document_.as_object())) {}

const SchemaNode* Schema::resolve(std::string_view reference) {
    if (const auto known = references_.find(reference); known != references_.end())
        return known->second;
    const json::value& target = document_.at_pointer(reference.substr(1));
    const SchemaNode* node = compile(target.as_object());
    references_.emplace(reference, node);
    return node;
}

const SchemaNode* Schema::compile(const json::object& source) {
    if (const json::value* reference = source.if_contains("$ref"))
        return resolve(reference->as_string());
    SchemaNode node;
    fill(node, source);
    return &nodes_.emplace_back(std::move(node));
}

void Schema::fill(SchemaNode& node, const json::object& source) {
    if (const json::value* type = source.if_contains("type"))
        node.type = textOf(*type);
    if (const json::value* parts = source.if_contains("allOf")) {
        for (const json::value& part : parts->as_array())
            inherit(node, part.at("$ref"));
    }
    if (const json::value* items = source.if_contains("items"))
        node.items = compile(items->as_object());
    if (const json::value* condition = source.if_contains("if")) {
        node.alternativeKey = textOf(condition->at("required").as_array().at(0));
        node.alternative = compile(source.at("then").as_object());
        inherit(node, source.at("else").at("$ref"));
    }
    fillMembers(node, source);
    fillWords(node, source);
    fillKeywords(node, source);
}

void Schema::fillMembers(SchemaNode& node, const json::object& source) {
    const json::value* properties = source.if_contains("properties");
    if (!properties)
        return;
    for (const json::key_value_pair& property : properties->as_object())
        node.members.push_back(
            {std::string(property.key()), compile(property.value().as_object()), false});
    const json::value* required = source.if_contains("required");
    if (!required)
        return;
    for (const json::value& key : required->as_array()) {
        std::ranges::find(node.members, textOf(key), &SchemaMember::key)->isRequired = true;
    }
}

void Schema::fillKeywords(SchemaNode& node, const json::object& source) {
    if (hasText(source, "x-readAs", "ascii"))
        node.readAs = ReadAs::Ascii;
    else if (hasText(source, "x-readAs", "names"))
        node.readAs = ReadAs::Names;
    node.countsByPresence = hasText(source, "x-countsBy", "presence");
    if (const json::value* names = source.if_contains("x-names"))
        node.nameRule = NameRule{textOf(names->at("list")), textOf(names->at("key")),
                                 textOf(names->at("word"))};
    if (const json::value* known = source.if_contains("x-known"))
        node.knownTexts = textsOf(*known);
    if (const json::value* path = source.if_contains("x-path"))
        node.pathRule = PathRule{textOf(path->at("path")), textsOf(path->at("folders"))};
}

void Schema::inherit(SchemaNode& node, const json::value& reference) {
    const SchemaNode& parent = *resolve(reference.as_string());
    node.type = parent.type;
    node.nameRule = parent.nameRule;
    node.pathRule = parent.pathRule;
    node.members.insert(node.members.end(), parent.members.begin(), parent.members.end());
}

} // namespace refdoc::check
