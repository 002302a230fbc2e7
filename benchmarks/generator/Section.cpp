#include "benchmarks/generator/Section.hpp"

#include <algorithm>

namespace reference::docparser::benchmarks {

namespace {

JsonObject makeHeader(const std::string& name, Language language, TextStatistics& statistics) {
    JsonObject section(statistics);
    section.name("schema", "reference").name("schemaVersion", "1.2");
    section.text("productName", concat({name, " ", Prose(language, name.size()).text(8)}));
    section.name("baseCode",
                 concat({name.substr(0, 2), std::to_string(name.size()), name.substr(2)}));
    section.name("helpFolder", name).name("helpLocation", concat({"help/", name}));
    return section;
}

} // namespace

std::string pageOf(const std::string& name, std::size_t number) {
    return concat({"ref/", name, "_", std::to_string(number), ".html"});
}

std::string makeFile(const GeneratedProduct& product, Language language, TextStatistics& statistics,
                     const MakeItems& makeItems) {
    JsonObject file = makeHeader(product.name, language, statistics);
    file.objects("refItems", makeItems(product, product.itemCount));
    if (product.seed % 20 == 7) {
        const GeneratedProduct package{product.name + "kit", product.seed + 1,
                                       std::max<std::size_t>(1, product.itemCount / 4)};
        JsonObject section = makeHeader(package.name, language, statistics);
        section.objects("refItems", makeItems(package, package.itemCount));
        file.objects("supportPackages", {section.str()});
    }
    return file.str();
}

} // namespace reference::docparser::benchmarks
