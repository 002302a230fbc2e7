#include "docparser/json/ToJson.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/json/JsonText.hpp"
#include "tools/refdoc/translations/formats/ReportFormats.hpp"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace refdoc::translations {

namespace json = boost::json;
using reference::json::toJson;

namespace {

enum class Type { Items, Lookup };

json::object countsOf(const Counts& counts) {
    return {{"english", counts.english},
            {"translated", counts.translated},
            {"share", counts.share() / 10}};
}

// The members that name an entry: its href, and the name of a lookup record.
json::object nameOf(const std::u16string& name, const std::u16string& href, Type type) {
    json::object object;
    if (type == Type::Lookup)
        object.emplace("name", toJson(name));
    object.emplace("href", toJson(href));
    return object;
}

json::value elementOf(const Entry& entry, Type type) {
    json::object object = nameOf(entry.name, entry.href, type);
    if (entry.defect == Defect::OutOfStep)
        object.emplace("fields", toJson(entry.fields));
    else if (type == Type::Items)
        return object.at("href");
    return object;
}

json::array renamesOf(const Comparison& comparison, Type type) {
    json::array renames;
    for (const Entry& entry : comparison.entries) {
        if (!entry.replacement)
            continue;
        json::object element = nameOf(entry.name, entry.href, type);
        element.emplace("likely", type == Type::Items
                                      ? toJson(entry.replacement->href)
                                      : json::value(nameOf(entry.replacement->name,
                                                           entry.replacement->href, Type::Lookup)));
        renames.push_back(std::move(element));
    }
    return renames;
}

json::object documentOf(const Comparison& comparison, Type type) {
    Counts counts;
    counts.add(comparison);
    json::object object = countsOf(counts);
    for (const Defect defect : kDefects) {
        if (defect != Defect::Dropped || type == Type::Lookup)
            object.emplace(toWord(defect), json::array());
    }
    for (const Entry& entry : comparison.entries)
        object.at(toWord(entry.defect)).as_array().push_back(elementOf(entry, type));
    object.emplace("renamed", renamesOf(comparison, type));
    return object;
}

// Numbers are null if the place is not known.
void addPlace(const std::optional<reference::docparser::TextPlace>& place, json::object& object) {
    object.emplace("line", place ? json::value(place->line) : json::value());
    object.emplace("column", place ? json::value(place->column) : json::value());
}

json::value detailOf(const Entry& entry, std::string_view list) {
    const Position position = entry.position.value_or(Position());
    json::object object{{"list", list},
                        {"class", toWord(entry.defect)},
                        {"section", toJson(entry.section)},
                        {"name", toJson(entry.name)},
                        {"href", toJson(entry.href)},
                        {"path", toJson(position.path)},
                        {"entry", toJson(position.entry)}};
    addPlace(position.place, object);
    return object;
}

json::array detailsOf(const LanguageReport& report) {
    json::array details;
    for (const Entry& entry : report.items.entries)
        details.push_back(detailOf(entry, "items"));
    for (const Entry& entry : report.lookup.entries)
        details.push_back(detailOf(entry, "lookup"));
    return details;
}

json::object documentOf(const ProductReport& product, Depth depth) {
    json::object languages;
    for (const LanguageReport& report : product.languages) {
        json::object object = documentOf(report.items, Type::Items);
        object.emplace("lookup", documentOf(report.lookup, Type::Lookup));
        if (depth == Depth::Entries)
            object.emplace("details", detailsOf(report));
        languages.emplace(fl::i18n::to_string(report.language), std::move(object));
    }
    return {{"product", toJson(product.product)},
            {"hasEnglish", product.hasEnglish},
            {"languages", std::move(languages)}};
}

json::value documentOf(const DamagedFile& damaged) {
    json::object object{{"language", toJson(damaged.language)},
                        {"path", toJson(damaged.file.path)},
                        {"entry", toJson(damaged.file.entry)},
                        {"fate", reference::docparser::toWord(damaged.file.fate)},
                        {"reason", damaged.file.reason}};
    addPlace(damaged.file.place, object);
    return object;
}

json::object totalsDocument(const Report& report) {
    const std::vector<Totals> totals = totalsOf(report);
    json::object languages;
    for (std::size_t index = 0; index < totals.size(); ++index) {
        json::object object = countsOf(totals[index].items);
        object.emplace("lookup", countsOf(totals[index].lookup));
        languages.emplace(fl::i18n::to_string(report.languages[index]), std::move(object));
    }
    return languages;
}

} // namespace

std::string toJsonDocument(const Report& report, Depth depth) {
    json::array products;
    for (const ProductReport& product : report.products)
        products.push_back(documentOf(product, depth));
    json::array damaged;
    for (const DamagedFile& file : report.damaged)
        damaged.push_back(documentOf(file));
    return toIndentedJson({{"products", std::move(products)},
                           {"languages", totalsDocument(report)},
                           {"damaged", std::move(damaged)}});
}

std::string toJsonLines(const Report& report, Depth depth) {
    std::string lines;
    for (const ProductReport& product : report.products)
        lines += toJsonLine(documentOf(product, depth));
    return lines;
}

} // namespace refdoc::translations
