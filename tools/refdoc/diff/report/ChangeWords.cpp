#include "tools/refdoc/diff/report/ChangeWords.hpp"

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include <algorithm>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

bool isUpper(char byte) {
    return byte >= 'A' && byte <= 'Z';
}

bool isIndex(std::string_view step) {
    return !step.empty() &&
           std::ranges::all_of(step, [](char byte) { return byte >= '0' && byte <= '9'; });
}

// "refPurpose" is "purpose", "inputGroups" is "input groups".
std::string wordsOf(std::string_view member) {
    constexpr std::string_view kPrefix = "ref";
    if (member.starts_with(kPrefix) && member.size() > kPrefix.size() &&
        isUpper(member[kPrefix.size()]))
        member.remove_prefix(kPrefix.size());
    std::string words;
    for (const char byte : member) {
        if (isUpper(byte) && !words.empty())
            words += ' ';
        words += isUpper(byte) ? static_cast<char>(byte - 'A' + 'a') : byte;
    }
    return words;
}

// Makes the last word singular: "entities", "syntaxes", "inputs".
void makeSingular(std::string& words) {
    if (words.ends_with("ies"))
        words.replace(words.size() - 3, 3, "y");
    else if (words.ends_with("xes"))
        words.resize(words.size() - 2);
    else if (words.ends_with("s"))
        words.pop_back();
}

// Returns an index as people count, from 1.
std::string numberOf(std::string_view index) {
    std::string number(index);
    // Adds 1 in decimal, because an index may have any length.
    for (std::size_t at = number.size(); at-- > 0;) {
        if (number[at] != '9') {
            ++number[at];
            return number;
        }
        number[at] = '0';
    }
    return '1' + number;
}

std::size_t countRecords(const json::value* section) {
    const json::object* object = section ? section->if_object() : nullptr;
    const json::value* items = object ? object->if_contains("items") : nullptr;
    if (!items || !items->is_object())
        return 0;
    std::size_t count = 0;
    for (const auto& member : items->get_object())
        count += member.value().is_array() ? member.value().get_array().size() : 1;
    return count;
}

// Counts the records below a member of the value of a product or section.
std::size_t countRecords(const Change& change, std::string_view member) {
    const json::value& value = change.oldValue.is_null() ? change.newValue : change.oldValue;
    const json::object* object = value.if_object();
    const json::value* part = object ? object->if_contains(member) : nullptr;
    const bool isProduct =
        change.id == ChangeId::ProductAdded || change.id == ChangeId::ProductRemoved;
    if (!part || !isProduct)
        return countRecords(part);
    std::size_t count = 0;
    if (const json::object* sections = part->if_object()) {
        for (const auto& section : *sections)
            count += countRecords(&section.value());
    }
    return count;
}

// What a record is called, or its first string if it has no such member.
std::string labelOf(const json::object& record) {
    for (const char* member : {"objectInfo", "name", "title", "url", "href"}) {
        const json::value* value = record.if_contains(member);
        if (std::string label = value ? valueText(*value) : ""; !label.empty())
            return label;
    }
    for (const auto& member : record) {
        if (const json::string* text = member.value().if_string(); text && !text->empty())
            return std::string(*text);
    }
    return json::serialize(record);
}

} // namespace

FieldEvent fieldEvent(const Change& change) {
    if (change.oldValue.is_null())
        return FieldEvent::Added;
    if (change.newValue.is_null())
        return FieldEvent::Removed;
    return change.oldValue.is_array() ? FieldEvent::Reordered : FieldEvent::Changed;
}

bool isFieldChange(const Change& change) {
    return change.id == ChangeId::SectionChanged || change.id == ChangeId::ItemChanged ||
           change.id == ChangeId::LookupChanged;
}

bool isLookupChange(const Change& change) {
    return change.id == ChangeId::LookupAdded || change.id == ChangeId::LookupRemoved ||
           change.id == ChangeId::LookupChanged;
}

std::string eventText(ChangeId id) {
    std::string text(toWord(id));
    std::ranges::replace(text, '-', ' ');
    constexpr std::string_view kLookup = "lookup";
    if (text.starts_with(kLookup))
        text.replace(0, kLookup.size(), "entry");
    return text;
}

std::string fieldText(std::string_view pointer) {
    std::string text;
    while (!pointer.empty()) {
        pointer.remove_prefix(1);
        const std::string_view step = pointer.substr(0, pointer.find('/'));
        pointer.remove_prefix(step.size());
        if (isIndex(step)) {
            makeSingular(text);
            text += ' ' + numberOf(step);
        } else if (step != "objectInfo") {
            text += (text.empty() ? "" : ", ") + wordsOf(step);
        }
    }
    return text;
}

std::string valueText(const json::value& value) {
    if (value.is_null())
        return {};
    if (const json::string* text = value.if_string())
        return std::string(*text);
    if (const json::object* record = value.if_object())
        return labelOf(*record);
    const json::array* elements = value.if_array();
    if (!elements)
        return json::serialize(value);
    std::string text;
    for (const json::value& element : *elements)
        text += (text.empty() ? "" : ", ") + valueText(element);
    return text;
}

std::string contentsText(const Change& change) {
    const std::size_t items = countRecords(change, "resources");
    const std::size_t entries = countRecords(change, "lookup");
    std::string text;
    if (items > 0)
        text = counted(items, "item", "items");
    if (entries > 0)
        text += (text.empty() ? "" : ", ") + counted(entries, "entry", "entries");
    return text.empty() ? "empty" : text;
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

std::string summaryText(const Summary& summary) {
    const std::string_view where = summary.damagedFiles.empty() ? "" : " in undamaged files";
    if (summary.total() == 0)
        return fmt::format("no {}{}differences{}", summary.only ? toWord(*summary.only) : "",
                           summary.only ? " " : "", where);
    std::string counts;
    for (const ChangeClass each :
         {ChangeClass::Breaking, ChangeClass::Notable, ChangeClass::Textual}) {
        if (summary.count(each) > 0)
            counts += fmt::format("{} {} {}", counts.empty() ? ":" : ",", summary.count(each),
                                  toWord(each));
    }
    return counted(summary.total(), "difference", "differences").append(where) + counts;
}

} // namespace refdoc::diff
