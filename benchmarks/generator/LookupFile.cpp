#include "benchmarks/generator/ProductFiles.hpp"
#include "benchmarks/generator/Section.hpp"

#include <utility>
#include <vector>

namespace reference::docparser::benchmarks {

namespace {

std::string makeItem(Random& random, Prose& prose, const std::string& name, std::size_t index,
                     TextStatistics& statistics) {
    constexpr std::string_view kTypes[] = {"function", "function", "method", "class", "property"};
    JsonObject item(statistics);
    item.text("name", name);
    if (random.chance(0.95))
        item.word("type", random.pick(kTypes));
    item.text("refpurpose", prose.textAround(70));
    item.name("href", pageOf(name, index));
    if (random.chance(0.6))
        item.word("fcntype", random.chance(0.5) ? "method" : "function");
    if (random.chance(0.03))
        item.json("deprecated", "true");
    if (random.chance(0.06))
        item.shuffle(random);
    return item.str();
}

std::vector<std::string> makeItems(const GeneratedProduct& product, std::size_t pages,
                                   Language language, TextStatistics& statistics) {
    Prose prose(language, product.seed ^ (static_cast<std::uint64_t>(language) << 40));
    std::vector<std::string> items;
    std::string name;
    for (std::size_t index = 0; index < pages * 3 / 2; ++index) {
        Random random(product.seed * 2'000'003 + index);
        const bool isRepeated = index > 0 && random.chance(0.04);
        if (!isRepeated)
            name = concat(
                {identifier(random, 2 + random.below(2)), std::to_string(random.below(100))});
        const bool isTranslated = index % 12 != 5;
        if (language == Language::English || isTranslated)
            items.push_back(makeItem(random, prose, name, index, statistics));
    }
    statistics.items += items.size();
    return items;
}

} // namespace

std::string makeLookupFile(const GeneratedProduct& product, Language language,
                           TextStatistics& statistics) {
    return makeFile(product, language, statistics,
                    [&](const GeneratedProduct& section, std::size_t count) {
                        return makeItems(section, count, language, statistics);
                    });
}

} // namespace reference::docparser::benchmarks
