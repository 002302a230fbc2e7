#include "benchmarks/rows/Corpus.hpp"

#include "benchmarks/harness/BenchmarkHost.hpp"
#include "docparser/DocResourceParser.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace reference::docparser::benchmarks {

namespace fs = std::filesystem;

namespace {

const std::vector<std::string> kTranslations = {"de", "ja", "ru"};

bool isTranslation(const std::string& stem) {
    return std::ranges::any_of(
        kTranslations, [&](const std::string& language) { return stem.ends_with("_" + language); });
}

// As a program makes it that has just read a file: with room behind the text.
void addText(std::vector<ProductText>& texts, const fs::path& file, const std::u16string& product) {
    if (std::string text = readFile(file); !text.empty())
        texts.push_back({std::move(text), product});
}

} // namespace

Corpus::Corpus(fs::path root)
    : fullFolder_(root / "docCatalog" / "referenceapi"),
      lookupFolder_(root / "docCatalog" / "referenceapi_lookup") {
    for (const fs::directory_entry& entry : fs::directory_iterator(fullFolder_)) {
        const fs::path& path = entry.path();
        if (path.extension() == ".json" && !isTranslation(path.stem()))
            products_.push_back(path.stem().u16string());
    }
    std::ranges::sort(products_);
    for (std::size_t index = 0; index < products_.size(); ++index) {
        if (index % 3 != 0)
            installed_.push_back(products_[index]);
    }
    DocResourceParser::setReferenceRoot(root.u16string());
    setLanguage("en");
}

void Corpus::keepTypicalProduct() {
    const auto length = [this](const std::u16string& product) {
        return fs::file_size((fullFolder_ / product).concat(".json"));
    };
    const auto middle = products_.begin() + static_cast<std::ptrdiff_t>(products_.size() / 2);
    std::ranges::nth_element(products_, middle, {}, length);
    products_ = {*middle};
}

std::vector<ProductText> Corpus::fullTexts() const {
    std::vector<ProductText> texts;
    for (const std::u16string& product : products_) {
        const fs::path stem = fullFolder_ / product;
        addText(texts, fs::path(stem).concat(".json"), product);
        for (const std::string& language : kTranslations)
            addText(texts, fs::path(stem).concat("_" + language + ".json"), product);
    }
    return texts;
}

std::vector<ProductText> Corpus::fullTexts(const std::u16string& product,
                                           const std::string& language) const {
    std::vector<ProductText> texts;
    const fs::path stem = fullFolder_ / product;
    addText(texts, fs::path(stem).concat(".json"), product);
    addText(texts, fs::path(stem).concat("_" + language + ".json"), product);
    return texts;
}

std::vector<ProductText> Corpus::lookupTexts(const std::string& language) const {
    std::vector<ProductText> texts;
    const auto collect = [&texts](std::string text, const std::u16string& product) {
        texts.push_back({std::move(text), product});
        return LookupMap();
    };
    retrieveLookups(lookupFolder_, lookupSettings(language), collect);
    return texts;
}

LookupSettings Corpus::lookupSettings(const std::string& language) const {
    return {language, kTranslations, {installed_.begin(), installed_.end()}};
}

void Corpus::setLanguage(const std::string& language) const {
    setBenchmarkHost(fs::path(language).u16string(), installed_);
}

} // namespace reference::docparser::benchmarks
