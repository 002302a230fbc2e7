#include "tools/refdoc/check/rules/SchemaRules.hpp"

#include "docparser/parsing/TextPlaces.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/suggest/Suggestions.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <string_view>

namespace refdoc::check {

namespace json = boost::json;

using fl::i18n::to_string;
using reference::docparser::FileAccount;
using reference::docparser::pointerToken;

namespace {

constexpr Rule kMissingKey{
    "missing-key", Severity::Error, "a required key is missing",
    "If one object lacks a required key, the whole file is dropped. Add the key; its value may be "
    "an empty string."};

constexpr Rule kWrongKind{
    "wrong-kind", Severity::Error, "a value has the wrong type",
    "If one value has the wrong type, such as a number instead of a string, the whole file is "
    "dropped. Only enumeration words and `deprecated` may have any type. Correct the value."};

constexpr Rule kUnknownKey{
    "unknown-key", Severity::Warning, "the key has no meaning in this object",
    "Unknown keys are ignored, so a misspelt key counts as absent. Keys are case-sensitive. In an "
    "object with the key `namevaluepairs`, all other keys are ignored. Correct or remove the key."};

constexpr Rule kUnknownWord{
    "unknown-word", Severity::Warning, "the enumeration has no such word",
    "A word that its enumeration does not have, or a value that is not a string, is read as the "
    "default of the enumeration. Words are case-sensitive. Correct the word."};

constexpr Rule kNotAscii{
    "not-ascii", Severity::Warning, "a string that is read as ASCII has other characters",
    "Identifiers and links are read byte by byte, and each byte becomes one character. Other "
    "characters are therefore garbled, and a link to them is broken. Write them as percent escapes "
    "in links. Names of inputs and properties may have any characters if the item has an entity "
    "with the type \"component\"."};

constexpr Rule kDeprecatedFalse{
    "deprecated-false", Severity::Warning, "\"deprecated\": false marks the record as deprecated",
    "If the key `deprecated` is present, the record is deprecated, whatever the value of the key. "
    "Remove the key from records that are not deprecated."};

constexpr Rule kUnknownVersion{
    "unknown-version", Severity::Note, "the version of the format is unknown",
    "The version has no effect: files of all versions are read in the same way. `refdoc check` "
    "knows the keys and words of the listed versions only, so its other findings in the file may "
    "be wrong. Correct the version, or use a newer `refdoc`."};

constexpr Rule kHelpLocation{
    "help-location", Severity::Note, "the help location is not that of the help folder",
    "Links are relative to the `helpLocation` of their section. One of its folders should be the "
    "`helpFolder` or, for a support package, the `baseCode`. Otherwise the links probably lead to "
    "the pages of another product. Correct the `helpLocation` or the `helpFolder`."};

std::string_view typeOf(const json::value& value) {
    switch (value.kind()) {
    case json::kind::object: return "an object";
    case json::kind::array: return "an array";
    case json::kind::string: return "a string";
    case json::kind::bool_: return "a Boolean";
    case json::kind::null: return "null";
    case json::kind::int64:
    case json::kind::uint64:
    case json::kind::double_: return "a number";
    }
    return {};
}

std::string_view typeOf(std::string_view schemaType) {
    return schemaType == "string" ? "a string" : schemaType == "array" ? "an array" : "an object";
}

bool isOfType(const json::value& value, std::string_view schemaType) {
    return schemaType.empty() || typeOf(value) == typeOf(schemaType);
}

// The first run of characters beyond ASCII; empty if there is none.
std::string_view firstBeyondAscii(std::string_view text) {
    const auto isBeyond = [](char byte) { return static_cast<signed char>(byte) < 0; };
    const auto first = std::ranges::find_if(text, isBeyond);
    return {first, std::find_if_not(first, text.end(), isBeyond)};
}

// Returns the string under a key; empty if there is none.
std::string_view textIn(const json::object& object, std::string_view key) {
    const json::value* value = object.if_contains(key);
    return value && value->is_string() ? std::string_view(value->get_string()) : std::string_view();
}

// What identifies an element of an array for its author; empty if nothing does.
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

// The indexes of findings about the members of one object.
using MemberFindings = std::map<const SchemaMember*, std::size_t>;

class Walker {
public:
    explicit Walker(std::vector<Finding>& findings) : findings_(findings) {}

    // Returns whether the file is dropped.
    bool run(const json::value& document, const SchemaNode& root) {
        walk(document, root, ReadAs::Utf8);
        return isDropped_;
    }

private:
    void walk(const json::value& value, const SchemaNode& node, ReadAs readAs) {
        if (!isOfType(value, node.type))
            return add(kWrongKind, /*isAtKey=*/false,
                       fmt::format("expected {}, found {}; the whole file is dropped",
                                   typeOf(node.type), typeOf(value)));
        if (!node.words.empty())
            return checkWord(value, node);
        if (node.countsByPresence)
            return checkPresence(value);
        if (const json::string* text = value.if_string())
            return checkText(*text, node, readAs);
        if (const json::array* elements = value.if_array())
            return walkElements(*elements, node);
        if (const json::object* object = value.if_object())
            walkObject(*object, node);
    }

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
            const MemberFindings missing = checkRequired(object, node);
            const MemberFindings misspelt = walkMembers(object, node);
            for (const auto& [member, finding] : missing) {
                if (const auto found = misspelt.find(member); found != misspelt.end())
                    findings_[finding].fix = findings_[found->second].fix;
            }
            if (node.pathRule)
                checkPath(object, *node.pathRule);
        }
        namesAreUtf8_ = outerNames;
    }

    // Returns the findings about keys that seem to be misspelt, by the member that is meant.
    MemberFindings walkMembers(const json::object& object, const SchemaNode& node) {
        steps_.push_back({});
        // Most files have the keys in the schema's order, so the search continues after the last
        // match.
        std::size_t next = 0;
        MemberFindings misspelt;
        for (const json::key_value_pair& pair : object) {
            const std::string_view key = pair.key();
            steps_.back() = {key, 0, nullptr};
            std::size_t tried = 0;
            for (; tried < node.members.size() && node.members[next].key != key; ++tried)
                next = (next + 1) % node.members.size();
            if (tried == node.members.size())
                addUnknownKey(pair, object, node, misspelt);
            else
                walk(pair.value(), *node.members[next].node, node.members[next].node->readAs);
        }
        steps_.pop_back();
        return misspelt;
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

    // Returns the findings about missing keys.
    MemberFindings checkRequired(const json::object& object, const SchemaNode& node) {
        MemberFindings missing;
        for (const SchemaMember& member : node.members) {
            if (!member.isRequired || object.contains(member.key))
                continue;
            missing.emplace(&member, findings_.size());
            add(kMissingKey, /*isAtKey=*/false,
                fmt::format("the required key \"{}\" is missing; the whole file is dropped",
                            member.key),
                member.key);
        }
        return missing;
    }

    void checkWord(const json::value& value, const SchemaNode& node) {
        const json::string* word = value.if_string();
        if (!word)
            return add(kUnknownWord, /*isAtKey=*/false,
                       fmt::format("expected a word, found {}; read as the default \"{}\"",
                                   typeOf(value), node.defaultWord));
        if (std::ranges::find(node.words, std::string_view(*word)) != node.words.end())
            return;
        const auto nearest = nearestName(*word, node.words);
        // The default needs no suggestion: the message names it.
        const bool isDefault = nearest && nearest->name == node.defaultWord;
        add(kUnknownWord, /*isAtKey=*/false,
            fmt::format("unknown word \"{}\", read as the default \"{}\"{}",
                        std::string_view(*word), node.defaultWord,
                        isDefault ? std::string() : didYouMean(nearest)));
        if (nearest && nearest->isUnique)
            replaceWith(nearest->name);
    }

    void checkPath(const json::object& object, const PathRule& rule) {
        const std::string_view path = textIn(object, rule.path);
        const auto hasFolder = [&](const std::string& key) {
            const std::string folder = fmt::format("/{}/", textIn(object, key));
            return fmt::format("/{}/", path).find(folder) != std::string::npos;
        };
        if (path.empty() || std::ranges::any_of(rule.folders, hasFolder))
            return;
        steps_.push_back({rule.path, 0, nullptr});
        add(kHelpLocation, /*isAtKey=*/false,
            fmt::format("the help location \"{}\" does not contain the help folder \"{}\"", path,
                        textIn(object, rule.folders.front())));
        steps_.pop_back();
    }

    void checkPresence(const json::value& value) {
        if (const bool* flag = value.if_bool(); flag && !*flag)
            add(kDeprecatedFalse, /*isAtKey=*/true,
                fmt::format("\"{}\": false has the same effect as true", steps_.back().key));
    }

    void checkText(std::string_view text, const SchemaNode& node, ReadAs readAs) {
        if (!node.knownTexts.empty() && !std::ranges::count(node.knownTexts, text))
            add(kUnknownVersion, /*isAtKey=*/false,
                fmt::format("unknown format version \"{}\"; known: \"{}\"", text,
                            fmt::join(node.knownTexts, "\", \"")));
        const bool isAsciiRead =
            readAs == ReadAs::Ascii || (readAs == ReadAs::Names && !namesAreUtf8_);
        const std::string_view beyond = isAsciiRead ? firstBeyondAscii(text) : std::string_view();
        if (beyond.empty())
            return;
        const fl::i18n::codecvt_ascii_to_ustring ascii(/*strict=*/false);
        const std::u16string garbled = ascii.convert(beyond.data(), beyond.size());
        add(kNotAscii, /*isAtKey=*/false,
            fmt::format("the string is read as ASCII: \"{}\" becomes \"{}\"", beyond,
                        to_string(garbled)));
        findings_.back().cause = innermostKey();
    }

    std::string innermostKey() const {
        const auto isMember = [](const Step& step) { return !step.value; };
        const auto step = std::find_if(steps_.rbegin(), steps_.rend(), isMember);
        return step == steps_.rend() ? std::string() : std::string(step->key);
    }

    void addUnknownKey(const json::key_value_pair& pair, const json::object& object,
                       const SchemaNode& node, MemberFindings& misspelt) {
        std::vector<std::string> known;
        for (const SchemaMember& member : node.members)
            known.push_back(member.key);
        const auto nearest = nearestName(pair.key(), known);
        add(kUnknownKey, /*isAtKey=*/true,
            fmt::format("unknown key \"{}\", ignored{}", std::string_view(pair.key()),
                        didYouMean(nearest)));
        if (!nearest || !nearest->isUnique || object.contains(nearest->name))
            return;
        const SchemaMember& member = *node.find(nearest->name);
        const auto [first, isFirst] = misspelt.emplace(&member, findings_.size() - 1);
        if (isFirst)
            fixKey(pair.value(), member);
        else
            findings_[first->second].fix.reset(); // only one of the two keys can be meant
    }

    // Corrects the last finding's key, unless its value would then have findings of its own that
    // can't be fixed.
    void fixKey(const json::value& value, const SchemaMember& member) {
        std::vector<Finding> uncovered;
        Walker walker(uncovered);
        walker.steps_ = steps_;
        walker.namesAreUtf8_ = namesAreUtf8_;
        walker.walk(value, *member.node, member.node->readAs);
        const auto hasFix = [](const Finding& found) { return found.fix.has_value(); };
        if (!std::ranges::all_of(uncovered, hasFix))
            return;
        replaceWith(member.key);
        for (Finding& found : uncovered)
            std::ranges::move(found.fix->edits, std::back_inserter(findings_.back().fix->edits));
    }

    // Fixes the last finding: another string takes the place of the one that it is about.
    void replaceWith(std::string_view text) {
        Finding& finding = findings_.back();
        finding.fix = Fix{.edits = {{.location = finding.location,
                                     .replacement = json::serialize(json::string(text))}}};
    }

    void add(const Rule& rule, bool isAtKey, std::string message, std::string_view detail = {}) {
        std::string pointer;
        std::string identity;
        for (const Step& step : steps_) {
            const std::string name = step.value ? nameOf(*step.value) : std::string(step.key);
            pointer += '/' + (step.value ? std::to_string(step.index) : pointerToken(step.key));
            identity += '/' + name;
        }
        identity.append("/").append(detail);
        isDropped_ |= rule.severity == Severity::Error;
        findings_.push_back({.rule = &rule,
                             .location = {.pointer = std::move(pointer), .isAtKey = isAtKey},
                             .message = std::move(message),
                             .identity = std::move(identity)});
    }

    std::vector<Finding>& findings_;
    std::vector<Step> steps_;
    bool namesAreUtf8_ = false;
    bool isDropped_ = false;
};

} // namespace

std::span<const Rule* const> schemaRules() {
    static constexpr const Rule* kRules[] = {&kMissingKey,     &kWrongKind,   &kUnknownKey,
                                             &kUnknownWord,    &kNotAscii,    &kDeprecatedFalse,
                                             &kUnknownVersion, &kHelpLocation};
    return kRules;
}

bool addSchemaFindings(const Schema& schema, const json::value& document,
                       std::vector<Finding>& findings) {
    return Walker(findings).run(document, schema.root());
}

Finding droppedFile(const FileAccount& account) {
    return {.rule = &kWrongKind,
            .location = {.pointer = account.pointer, .position = account.place},
            .message = fmt::format("{}; the whole file is dropped", account.reason)};
}

} // namespace refdoc::check
