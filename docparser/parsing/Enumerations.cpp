#include "docparser/parsing/Enumerations.hpp"

#include <algorithm>
#include <iterator>
#include <span>
#include <stdexcept>
#include <string>

namespace reference::property {

namespace {

// The words of each enumeration, in the order of its values.
using Words = std::span<const std::string_view>;

constexpr std::string_view kEntityTypes[] = {"function",  "class",       "method",    "property",
                                             "event",     "enumeration", "namespace", "interface",
                                             "type",      "constant",    "operator",  "command",
                                             "component", "app",         "module",    "keyword"};
constexpr std::string_view kSyntaxTypes[] = {"function", "command", "constructor", "operator"};
constexpr std::string_view kDeprecationStatuses[] = {"none", "discouraged", "deprecated",
                                                     "removed"};
constexpr std::string_view kFunctionTypes[] = {"function", "method", "constructor", "static",
                                               "operator", "macro",  "callback"};

static_assert(std::size(kEntityTypes) == RefEntityType::Keyword + 1);
static_assert(RefEntityType::Component == 12);
static_assert(std::size(kSyntaxTypes) == SyntaxType::Operator + 1);
static_assert(std::size(kDeprecationStatuses) == DeprecationStatus::Removed + 1);
static_assert(std::size(kFunctionTypes) == FunctionType::Callback + 1);

template <class Value>
Value find(Words words, std::string_view word) {
    const auto found = std::ranges::find(words, word);
    if (found == words.end())
        throw std::invalid_argument("unknown word \"" + std::string(word) + '"');
    return static_cast<Value>(found - words.begin());
}

std::string_view wordOf(Words words, int value) {
    if (value < 0 || static_cast<std::size_t>(value) >= words.size())
        throw std::invalid_argument("no enumeration value: " + std::to_string(value));
    return words[static_cast<std::size_t>(value)];
}

} // namespace

RefEntityType::Value RefEntityType::stringToEnum(std::string_view word) {
    return find<Value>(kEntityTypes, word);
}

std::string_view RefEntityType::enumToString(Value value) {
    return wordOf(kEntityTypes, value);
}

SyntaxType::Value SyntaxType::stringToEnum(std::string_view word) {
    return find<Value>(kSyntaxTypes, word);
}

std::string_view SyntaxType::enumToString(Value value) {
    return wordOf(kSyntaxTypes, value);
}

DeprecationStatus::Value DeprecationStatus::stringToEnum(std::string_view word) {
    return find<Value>(kDeprecationStatuses, word);
}

std::string_view DeprecationStatus::enumToString(Value value) {
    return wordOf(kDeprecationStatuses, value);
}

FunctionType::Value FunctionType::stringToEnum(std::string_view word) {
    return find<Value>(kFunctionTypes, word);
}

std::string_view FunctionType::enumToString(Value value) {
    return wordOf(kFunctionTypes, value);
}

} // namespace reference::property
