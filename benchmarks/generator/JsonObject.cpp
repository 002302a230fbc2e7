#include "benchmarks/generator/JsonObject.hpp"

#include <utility>

namespace reference::docparser::benchmarks {

namespace {

std::string quoted(std::string_view text) {
    std::string out = "\"";
    for (const char byte : text) {
        if (byte == '\n') {
            out += "\\n";
            continue;
        }
        if (byte == '"' || byte == '\\')
            out += '\\';
        out += byte;
    }
    return out += '"';
}

std::string joined(const std::vector<std::string>& parts, char open, char close) {
    std::string out(1, open);
    for (const std::string& part : parts) {
        if (out.size() > 1)
            out += ',';
        out += part;
    }
    return out += close;
}

std::string quotedList(const std::vector<std::string>& values) {
    std::vector<std::string> parts;
    for (const std::string& value : values)
        parts.push_back(quoted(value));
    return joined(parts, '[', ']');
}

} // namespace

std::string concat(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

JsonObject& JsonObject::word(std::string_view key, std::string_view value) {
    ++statistics_.words;
    return json(key, quoted(value));
}

JsonObject& JsonObject::name(std::string_view key, std::string_view value) {
    ++statistics_.identifiers;
    statistics_.identifierBytes += value.size();
    return json(key, quoted(value));
}

JsonObject& JsonObject::text(std::string_view key, std::string_view value) {
    ++statistics_.texts;
    statistics_.textBytes += value.size();
    return json(key, quoted(value));
}

JsonObject& JsonObject::names(std::string_view key, const std::vector<std::string>& values) {
    statistics_.identifiers += values.size();
    for (const std::string& value : values)
        statistics_.identifierBytes += value.size();
    return json(key, quotedList(values));
}

JsonObject& JsonObject::texts(std::string_view key, const std::vector<std::string>& values) {
    statistics_.texts += values.size();
    for (const std::string& value : values)
        statistics_.textBytes += value.size();
    return json(key, quotedList(values));
}

JsonObject& JsonObject::json(std::string_view key, std::string_view value) {
    members_.push_back(quoted(key).append(":").append(value));
    return *this;
}

JsonObject& JsonObject::objects(std::string_view key, const std::vector<std::string>& values) {
    return values.empty() ? *this : json(key, joined(values, '[', ']'));
}

JsonObject& JsonObject::shuffle(Random& random) {
    for (std::size_t left = members_.size(); left > 1; --left)
        std::swap(members_[left - 1], members_[random.below(left)]);
    return *this;
}

std::string JsonObject::str() const {
    return joined(members_, '{', '}');
}

} // namespace reference::docparser::benchmarks
