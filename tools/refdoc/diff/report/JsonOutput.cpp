#include "tools/refdoc/diff/report/DiffOutput.hpp"
#include "tools/refdoc/json/JsonText.hpp"

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>

#include <optional>

namespace refdoc::diff {

namespace json = boost::json;

namespace {

json::value toJson(const std::optional<std::size_t>& index) {
    return index ? json::value(*index) : json::value();
}

json::value toJson(const Change& change, const json::storage_ptr& storage) {
    return json::value({{"id", toWord(change.id)},
                        {"class", toWord(change.changeClass)},
                        {"product", change.product},
                        {"section", change.section},
                        {"href", change.href},
                        {"newHref", change.newHref},
                        {"certainty", change.certainty},
                        {"name", change.name},
                        {"oldIndex", toJson(change.oldIndex)},
                        {"newIndex", toJson(change.newIndex)},
                        {"field", change.field},
                        {"oldField", change.oldField},
                        {"old", change.oldValue},
                        {"new", change.newValue}},
                       storage);
}

json::value toJson(const Summary& summary) {
    return {{"breaking", summary.count(ChangeClass::Breaking)},
            {"notable", summary.count(ChangeClass::Notable)},
            {"textual", summary.count(ChangeClass::Textual)}};
}

json::array toJson(const std::vector<DamagedFile>& files) {
    json::array array;
    for (const DamagedFile& file : files)
        array.push_back({{"side", toWord(file.side)}, {"path", file.path}, {"error", file.error}});
    return array;
}

class JsonOutput : public DiffOutput {
public:
    std::string head() const override { return "{\n  \"changes\": ["; }

    std::string product(const ProductChanges& product) const override {
        std::string text;
        for (const Change& change : product.changes) {
            json::monotonic_resource pool;
            text += text.empty() ? "\n    " : ",\n    ";
            appendIndentedJson(text, toJson(change, &pool), /*depth=*/2);
        }
        return text;
    }

    std::string separator() const override { return ","; }

    std::string tail(const Summary& summary) const override {
        std::string text = summary.total() > 0 ? "\n  ],\n" : "],\n";
        text += "  \"summary\": ";
        appendIndentedJson(text, toJson(summary), /*depth=*/1);
        text += ",\n  \"damagedFiles\": ";
        appendIndentedJson(text, toJson(summary.damagedFiles), /*depth=*/1);
        return text + "\n}\n";
    }
};

class JsonLinesOutput : public DiffOutput {
public:
    std::string product(const ProductChanges& product) const override {
        std::string lines;
        for (const Change& change : product.changes) {
            json::monotonic_resource pool;
            lines += toJsonLine(toJson(change, &pool));
        }
        return lines;
    }

    std::string tail(const Summary& /*summary*/) const override { return {}; }
};

} // namespace

std::unique_ptr<DiffOutput> jsonOutput() {
    return std::make_unique<JsonOutput>();
}

std::unique_ptr<DiffOutput> jsonLinesOutput() {
    return std::make_unique<JsonLinesOutput>();
}

} // namespace refdoc::diff
