#include "tools/refdoc/translations/formats/EntryWords.hpp"

#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/explain/RuleText.hpp"

#include <boost/algorithm/string/join.hpp>
#include <fmt/format.h>

#include <string_view>
#include <vector>

namespace refdoc::translations {

using fl::i18n::to_ustring;

namespace {

// The names of fields that are not words.
std::string_view wordFor(std::string_view field) {
    if (field == "syntaxGroups")
        return "syntaxes";
    if (field == "inputGroups")
        return "groups of inputs";
    if (field == "classPropertyGroups")
        return "properties";
    if (field == "entityType")
        return "type";
    return field == "functionType" ? "function type" : field;
}

} // namespace

std::string percentText(const Counts& counts) {
    return fmt::format("{}.{}", counts.share() / 10, counts.share() % 10);
}

std::u16string titleOf(Defect defect) {
    return defect == Defect::OutOfStep ? u"out of step" : to_ustring(std::string(toWord(defect)));
}

std::u16string remarkOn(const Entry& entry) {
    if (entry.replacement) {
        const bool isSamePage = entry.replacement->href == entry.href;
        return u"now probably " + (isSamePage ? entry.replacement->name : entry.replacement->href);
    }
    std::vector<std::string> words;
    for (const std::string_view field : entry.fields)
        words.emplace_back(wordFor(field));
    return to_ustring(boost::algorithm::join(words, ", "));
}

std::u16string positionText(const Entry& entry) {
    if (!entry.position)
        return {};
    const Position& position = *entry.position;
    return placeText({.path = position.path, .entry = position.entry}, position.place);
}

} // namespace refdoc::translations
