#include "benchmarks/rows/Corpus.hpp"

#include "benchmarks/harness/Host.hpp"
#include "docparser/DocResourceParser.hpp"
#include "docparser/retrieval/LookupFiles.hpp"
#include "platform/i18n/Converter.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace reference::docparser::benchmarks {

namespace fs = std::filesystem;

std::string readFile(const std::string& path) {
    std::string text;
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return text;
    struct stat status {};
    if (::fstat(file, &status) == 0) {
        const auto size = static_cast<std::size_t>(status.st_size);
        text.reserve(size + kSpareBytes);
        text.resize(size);
        if (::read(file, text.data(), size) != status.st_size)
            text.clear();
    }
    ::close(file);
    return text;
}

Corpus::Corpus(const fs::path& root, std::vector<std::string> languages)
    : languages_(std::move(languages)),
      fullFolder_(root / "docCatalog" / "referenceapi"),
      lookupFolder_((root / "docCatalog" / "referenceapi_lookup").u16string()) {
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
}

bool Corpus::isTranslation(const std::string& stem) const {
    return std::ranges::any_of(languages_, [&](const std::string& language) {
        return language != "en" && stem.ends_with("_" + language);
    });
}

bool Corpus::isInstalled(const std::u16string& product) const {
    return std::ranges::binary_search(installed_, product);
}

std::string Corpus::fullFile(const std::u16string& product, const std::string& language) const {
    std::string file = (fullFolder_ / product).string();
    if (language != "en")
        file.append("_").append(language);
    return file.append(".json");
}

void Corpus::keepTypicalProduct() {
    const auto size = [this](const std::u16string& product) {
        return fs::file_size(fullFile(product, "en"));
    };
    const auto median = products_.begin() + static_cast<std::ptrdiff_t>(products_.size() / 2);
    std::ranges::nth_element(products_, median, {}, size);
    products_ = {*median};
}

void Corpus::setLanguage(const std::string& language) const {
    std::vector<std::u16string> supported;
    for (const std::string& each : languages_)
        supported.push_back(fl::i18n::to_ustring(each));
    platform::setHostServices(
        std::make_shared<Host>(fl::i18n::to_ustring(language), std::move(supported)));
    DocResourceParser::setTestProducts(installed_, {});
}

std::vector<std::string> Corpus::fullTexts(const std::u16string& product,
                                           const std::vector<std::string>& languages) const {
    std::vector<std::string> texts;
    for (const std::string& language : languages) {
        if (std::string text = readFile(fullFile(product, language)); !text.empty())
            texts.push_back(std::move(text));
    }
    return texts;
}

std::vector<std::pair<std::u16string, std::string>> Corpus::lookupTexts() const {
    std::vector<std::pair<std::u16string, std::string>> texts;
    const auto collect = [&](std::string text, const std::u16string& product, RetrievalObserver&) {
        texts.emplace_back(product, std::move(text));
        return LookupMap();
    };
    collectLookupFiles(
        lookupFolder_, collect, [](const std::u16string&) { return false; }, unobserved);
    return texts;
}

} // namespace reference::docparser::benchmarks
