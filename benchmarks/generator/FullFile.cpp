#include "benchmarks/generator/ProductFiles.hpp"
#include "benchmarks/generator/Section.hpp"

#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

namespace {

// Writes the items of one product in one language. What an item has follows from `random_` alone,
// so that all languages agree in it; `prose_` supplies the texts.
class ItemWriter {
public:
    ItemWriter(const GeneratedProduct& product, Language language, TextStatistics& statistics)
        : product_(product),
          language_(language),
          random_(product.seed),
          prose_(language, product.seed ^ (static_cast<std::uint64_t>(language) << 32)),
          statistics_(statistics) {}

    std::vector<std::string> items(std::size_t count) {
        std::vector<std::string> items;
        for (std::size_t index = 0; index < count; ++index) {
            random_ = Random(product_.seed * 1'000'003 + index);
            const bool isTranslated = index % 12 != 5;
            if (language_ == Language::English || isTranslated)
                items.push_back(item(index));
        }
        statistics_.items += items.size();
        return items;
    }

private:
    JsonObject object() { return JsonObject(statistics_); }

    std::string item(std::size_t index) {
        name_ = identifier(random_, 1 + random_.below(3));
        JsonObject item = object();
        item.name("href", pageOf(name_, index)).text("refpurpose", prose_.textAround(84));
        item.objects("refentity", entities());
        if (random_.chance(0.3))
            item.name("packagename", concat({product_.name, ".", identifier(random_, 1)}));
        if (random_.chance(0.7))
            item.name("introduced", concat({"version ", std::to_string(1 + random_.below(18)), ".",
                                            std::to_string(random_.below(6))}));
        if (random_.chance(0.4))
            item.text("description", prose_.textAround(520));
        if (random_.chance(0.03))
            item.json("appthumbnail", thumbnail());
        if (random_.chance(0.04))
            item.word("deprecationstatus", random_.chance(0.5) ? "discouraged" : "deprecated");
        item.objects("syntaxgroup", syntaxGroups());
        item.objects("inputs", inputs());
        item.objects("inputgroup", inputGroups());
        item.objects("outputs", arguments(random_.count(0.45), /*hasDefaults=*/false));
        item.objects("classpropertygroup", propertyGroups());
        item.objects("seealso", links());
        item.objects("examples", examples());
        if (random_.chance(0.05))
            item.objects("parameters", arguments(1 + random_.count(1), /*hasDefaults=*/true));
        if (random_.chance(0.06))
            item.shuffle(random_);
        return item.str();
    }

    std::vector<std::string> entities() {
        constexpr std::string_view kTypes[] = {"function", "function", "function", "method",
                                               "class",    "property", "component"};
        JsonObject entity = object();
        entity.word("type", random_.pick(kTypes));
        if (random_.chance(0.3))
            entity.word("fcntype", "method");
        return {entity.text("name", name_).str()};
    }

    std::string thumbnail() {
        return object()
            .name("fileref", concat({"images/", name_, "_thumbnail.png"}))
            .text("alt", prose_.textAround(40))
            .str();
    }

    std::vector<std::string> syntaxGroups() {
        std::vector<std::string> groups;
        const std::size_t count = random_.chance(0.75) ? 1 + random_.count(0.08) : 0;
        for (std::size_t group = 0; group < count; ++group) {
            std::vector<std::string> lines;
            for (std::size_t line = 0, last = 1 + random_.count(1.2); line < last; ++line)
                lines.push_back(concat({"value = ", name_, "(", identifier(random_, 2), ",",
                                        identifier(random_, 2), ",", identifier(random_, 2), ")"}));
            groups.push_back(object()
                                 .word("syntaxtype", random_.chance(0.9) ? "function" : "command")
                                 .text("title", prose_.text(18))
                                 .names("syntax", lines)
                                 .str());
        }
        return groups;
    }

    std::string argument(bool hasDefaults) {
        const std::string name = identifier(random_, 1 + random_.below(2));
        JsonObject argument = object();
        argument.name("name", name).text("purpose", prose_.textAround(96));
        if (random_.chance(0.2)) {
            std::vector<std::string> values;
            for (std::size_t value = 0, last = 1 + random_.count(1.5); value < last; ++value)
                values.push_back(prose_.text(10));
            argument.texts("value", values);
        }
        if (random_.chance(0.9))
            argument.name("htmlid",
                          concat({"argument_", name, "_", std::to_string(random_.below(99999))}));
        if (hasDefaults && random_.chance(0.2))
            argument.text("defaultvalue", prose_.text(8));
        return argument.str();
    }

    std::vector<std::string> arguments(std::size_t count, bool hasDefaults) {
        std::vector<std::string> list;
        while (list.size() < count)
            list.push_back(argument(hasDefaults));
        return list;
    }

    std::vector<std::string> inputs() {
        std::vector<std::string> list = arguments(random_.count(0.75), /*hasDefaults=*/true);
        if (random_.chance(0.06)) {
            JsonObject pairs = object();
            pairs.objects("namevaluepairs", arguments(1 + random_.count(2), /*hasDefaults=*/true));
            list.push_back(pairs.str());
        }
        return list;
    }

    std::vector<std::string> inputGroups() {
        if (!random_.chance(0.02))
            return {};
        JsonObject group = object();
        group.text("title", prose_.text(24));
        group.objects("inputs", arguments(1 + random_.count(2), /*hasDefaults=*/true));
        return {group.str()};
    }

    std::vector<std::string> propertyGroups() {
        if (!random_.chance(0.06))
            return {};
        std::vector<std::string> properties;
        for (std::size_t property = 0, last = 1 + random_.count(3); property < last; ++property) {
            JsonObject entry = object();
            entry.name("name", identifier(random_, 2)).text("purpose", prose_.textAround(70));
            if (random_.chance(0.4))
                entry.text("defaultvalue", prose_.text(8));
            properties.push_back(entry.str());
        }
        JsonObject group = object();
        group.text("title", prose_.text(20)).objects("classproperty", properties);
        return {group.str()};
    }

    std::vector<std::string> links() {
        std::vector<std::string> list;
        for (std::size_t link = 0, last = random_.count(1.2); link < last; ++link) {
            const std::string name = identifier(random_, 2);
            list.push_back(
                object().name("url", pageOf(name, random_.below(100))).text("name", name).str());
        }
        return list;
    }

    std::vector<std::string> examples() {
        std::vector<std::string> list;
        for (std::size_t example = 0, last = random_.count(0.22); example < last; ++example) {
            const std::string name = identifier(random_, 3);
            list.push_back(object()
                               .name("url", concat({"../", product_.name, "/ug/", name, ".html"}))
                               .name("open_command", concat({"example ", name}))
                               .text("title", prose_.textAround(44))
                               .str());
        }
        return list;
    }

    const GeneratedProduct& product_;
    Language language_;
    Random random_;
    Prose prose_;
    TextStatistics& statistics_;
    std::string name_; // of the item that is being written
};

} // namespace

std::string makeFullFile(const GeneratedProduct& product, Language language,
                         TextStatistics& statistics) {
    return makeFile(product, language, statistics,
                    [&](const GeneratedProduct& section, std::size_t count) {
                        return ItemWriter(section, language, statistics).items(count);
                    });
}

} // namespace reference::docparser::benchmarks
