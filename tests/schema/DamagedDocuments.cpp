#include "tests/schema/DamagedDocuments.hpp"

#include "tests/support/JsonValues.hpp"

#include <cstddef>
#include <iterator>
#include <set>
#include <utility>

namespace docparser_tests {

namespace json = boost::json;

namespace {

using Visit = std::function<void(const json::value&, const std::string&)>;

// The pointer of the parent, and the key or index of the value in it.
std::pair<std::string, std::string> split(const std::string& pointer) {
    const std::size_t end = pointer.rfind('/');
    return {pointer.substr(0, end), pointer.substr(end + 1)};
}

void removeFrom(json::value& document, const std::string& pointer) {
    const auto [parent, key] = split(pointer);
    json::value& holder = document.at_pointer(parent);
    if (json::array* array = holder.if_array())
        array->erase(array->begin() + std::stoi(key));
    else
        holder.as_object().erase(key);
}

std::vector<std::string> pointersOf(const json::value& document) {
    std::set<std::string> pointers;
    addPointers(document, "", pointers);
    return {pointers.begin(), pointers.end()};
}

// Adds an element or a member.
void addTo(json::value& holder, const std::string& key, const json::value& value) {
    if (json::array* array = holder.if_array())
        array->push_back(value);
    else
        holder.as_object()[key] = value;
}

bool holdsOthers(const json::value& value) {
    return value.is_array() || value.is_object();
}

void visitPosition(const json::value& good, const std::string& pointer, const Visit& visit) {
    const auto visitAs = [&](const json::value& document, const char* change,
                             const std::string& type) {
        visit(document, std::string(pointer).append(change).append(type));
    };
    for (const auto& [value, type] : everyType()) {
        json::value document = good;
        document.at_pointer(pointer) = value;
        visitAs(document, " is ", type);
        document.at_pointer(pointer) = json::array{value};
        visitAs(document, " is an array that holds ", type);
        if (!holdsOthers(good.at_pointer(pointer)))
            continue;
        document = good;
        addTo(document.at_pointer(pointer), "unknown", value);
        visitAs(document, " also holds ", type);
    }
}

const std::string& anyOf(const std::vector<std::string>& texts, std::mt19937& random) {
    return texts[random() % texts.size()];
}

void damageOnce(json::value& document, std::mt19937& random) {
    const std::vector<std::string> pointers = pointersOf(document);
    if (pointers.empty())
        return;
    const std::string& pointer = anyOf(pointers, random);
    // A copy, because the change may affect the original.
    const json::value other = document.at_pointer(anyOf(pointers, random));
    json::value& target = document.at_pointer(pointer);
    switch (random() % 4) {
    case 0: removeFrom(document, pointer); break;
    case 1: target = everyType()[random() % everyType().size()].first; break;
    case 2: target = other; break;
    default:
        if (holdsOthers(target))
            addTo(target, split(anyOf(pointers, random)).second, other);
    }
}

} // namespace

void forEachDamage(const json::value& good, const Visit& visit) {
    visit(good, "unchanged");
    visitPosition(good, "", visit);
    for (const std::string& pointer : pointersOf(good)) {
        visitPosition(good, pointer, visit);
        json::value document = good;
        removeFrom(document, pointer);
        visit(document, pointer + " is missing");
    }
}

json::value damagedAtRandom(const json::value& good, std::mt19937& random) {
    json::value document = good;
    for (std::size_t rest = 1 + random() % 4; rest > 0; --rest)
        damageOnce(document, random);
    return document;
}

} // namespace docparser_tests
