#include "tools/refdoc/check/schema/SchemaWalker.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace refdoc::check {

namespace json = boost::json;

using fl::i18n::to_string;
using reference::docparser::pointerToken;

namespace {

std::string_view kindOf(const json::value& value) {
    switch (value.kind()) {
    case json::kind::object: return "an object";
    case json::kind::array: return "an array";
    case json::kind::string: return "a string";
    case json::kind::bool_: return "a Boolean";
    case json::kind::null: return "null";
    case json::kind::int64:
    case json::kind::uint64:
    case json::kind::double_: break;
    }
    return "a number";
}

std::string_view kindOf(std::string_view schemaType) {
    return schemaType == "string" ? "a string" : schemaType == "array" ? "an array" : "an object";
}

bool isOfKind(const json::value& value, std::string_view schemaType) {
    return schemaType.empty() || kindOf(value) == kindOf(schemaType);
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

// The first run of characters beyond ASCII.
std::string_view firstBeyondAscii(std::string_view text) {
    const auto isBeyond = [](char byte) { return static_cast<signed char>(byte) < 0; };
    const auto first = std::ranges::find_if(text, isBeyond);
    return {first, std::find_if_not(first, text.end(), isBeyond)};
}

// What people would call an element of an array by; empty when it has nothing of the kind.
std::string nameOf(const json::value& element) {
    const json::object* object = element.if_object();
    if (!object)
        return {};
    std::string name;
    for (const std::string_view key : {"href", "name", "url", "baseCode", "shortName", "title"}) {
        const json::value* value = object->if_contains(key);
        if (value && value->is_string())
            name.append(name.empty() ? "" : " ").append(value->as_string());
    }
    return name;
}

// One step from the document down to a value.
struct Step {
    std::string_view key;
    std::size_t index;
    const json::value* value; // an element of an array; null for a member
};

class Walker {
public:
    explicit Walker(std::vector<ContentFinding>& findings) : findings_(findings) {}

    void walk(const json::value& value, const SchemaNode& node, ReadAs readAs) {
        if (!isOfKind(value, node.kind))
            return add(RuleId::WrongKind, /*isAtKey=*/false,
                       fmt::format("expected {}, found {}; the whole file is dropped",
                                   kindOf(node.kind), kindOf(value)));
        if (!node.words.empty())
            return checkWord(value, node);
        if (node.countsByPresence)
            return checkPresence(value);
        if (const json::string* text = value.if_string())
            return checkText(*text, readAs);
        if (const json::array* elements = value.if_array())
            return walkElements(*elements, node);
        if (const json::object* object = value.if_object())
            walkObject(*object, node);
    }

private:
    void walkElements(const json::array& elements, const SchemaNode& node) {
        if (!node.items)
            return;
        const ReadAs readAs = node.items->readAs == ReadAs::Utf8 ? node.readAs : node.items->readAs;
        steps_.push_back({});
        for (std::size_t index = 0; index < elements.size(); ++index) {
            steps_.back() = {{}, index, &elements[index]};
            walk(elements[index], *node.items, readAs);
        }
        steps_.pop_back();
    }

    void walkObject(const json::object& object, const SchemaNode& node) {
        if (!node.alternativeKey.empty() && object.contains(node.alternativeKey))
            return walkObject(object, *node.alternative);
        const bool outerNames = namesAreUtf8_;
        if (node.nameRule)
            namesAreUtf8_ = hasWord(object, *node.nameRule);
        if (!node.members.empty()) {
            checkRequired(object, node);
            walkMembers(object, node);
        }
        namesAreUtf8_ = outerNames;
    }

    void walkMembers(const json::object& object, const SchemaNode& node) {
        steps_.push_back({});
        // Files mostly write the keys in the schema's order, so the search goes on behind the last
        // hit.
        std::size_t next = 0;
        for (const json::key_value_pair& pair : object) {
            const std::string_view key = pair.key();
            steps_.back() = {key, 0, nullptr};
            std::size_t tried = 0;
            for (; tried < node.members.size() && node.members[next].key != key; ++tried)
                next = (next + 1) % node.members.size();
            if (tried == node.members.size())
                addUnknownKey(key, node);
            else
                walk(pair.value(), *node.members[next].node, node.members[next].node->readAs);
        }
        steps_.pop_back();
    }

    static bool hasWord(const json::object& object, const NameRule& rule) {
        const json::value* list = object.if_contains(rule.list);
        if (!list || !list->is_array())
            return false;
        return std::ranges::any_of(list->get_array(), [&](const json::value& element) {
            const json::object* entity = element.if_object();
            const json::value* word = entity ? entity->if_contains(rule.key) : nullptr;
            return word && word->is_string() && word->get_string() == rule.word;
        });
    }

    void checkRequired(const json::object& object, const SchemaNode& node) {
        for (const SchemaMember& member : node.members) {
            if (member.isRequired && !object.contains(member.key))
                add(RuleId::MissingKey, /*isAtKey=*/false,
                    fmt::format("the required key \"{}\" is missing; the whole file is dropped",
                                member.key),
                    member.key);
        }
    }

    void checkWord(const json::value& value, const SchemaNode& node) {
        const json::string* word = value.if_string();
        if (!word)
            return add(
                RuleId::UnknownWord, /*isAtKey=*/false,
                fmt::format("{} is no word and counts as \"{}\"", kindOf(value), node.defaultWord));
        if (std::ranges::find(node.words, std::string_view(*word)) == node.words.end())
            add(RuleId::UnknownWord, /*isAtKey=*/false,
                fmt::format("unknown word \"{}\" counts as \"{}\"{}", std::string_view(*word),
                            node.defaultWord, didYouMean(*word, node.words)));
    }

    void checkPresence(const json::value& value) {
        if (const bool* flag = value.if_bool(); flag && !*flag)
            add(RuleId::DeprecatedFalse, /*isAtKey=*/true,
                fmt::format("\"{}\": false counts as true; the key alone decides",
                            steps_.back().key));
    }

    void checkText(std::string_view text, ReadAs readAs) {
        const bool isBytes = readAs == ReadAs::Ascii || (readAs == ReadAs::Names && !namesAreUtf8_);
        if (!isBytes || isAscii(text))
            return;
        const std::string_view beyond = firstBeyondAscii(text);
        const fl::i18n::codecvt_ascii_to_ustring ascii(/*strict=*/false);
        const std::u16string garbled = ascii.convert(beyond.data(), beyond.size());
        add(RuleId::NotAscii, /*isAtKey=*/false,
            fmt::format("the text is read as ASCII, and \"{}\" becomes \"{}\"", beyond,
                        to_string(garbled)));
    }

    void addUnknownKey(std::string_view key, const SchemaNode& node) {
        std::vector<std::string> known;
        for (const SchemaMember& member : node.members)
            known.push_back(member.key);
        add(RuleId::UnknownKey, /*isAtKey=*/true,
            fmt::format("the key \"{}\" has no meaning here and is ignored{}", key,
                        didYouMean(key, known)));
    }

    void add(RuleId rule, bool isAtKey, std::string message, std::string_view detail = {}) {
        std::string pointer;
        std::string identity;
        for (const Step& step : steps_) {
            const std::string name = step.value ? nameOf(*step.value) : std::string(step.key);
            pointer += '/' + (step.value ? std::to_string(step.index) : pointerToken(step.key));
            identity += '/' + name;
        }
        identity.append("/").append(detail);
        findings_.push_back(
            {rule, std::move(pointer), isAtKey, std::move(message), std::move(identity)});
    }

    std::vector<ContentFinding>& findings_;
    std::vector<Step> steps_;
    bool namesAreUtf8_ = false;
};

} // namespace

std::vector<ContentFinding> walkDocument(const Schema& schema, const json::value& document) {
    std::vector<ContentFinding> findings;
    Walker(findings).walk(document, schema.root(), ReadAs::Utf8);
    return findings;
}

} // namespace refdoc::check
