#include "benchmarks/peers/Peers.hpp"
#include "docparser/retrieval/LookupMerge.hpp"

#include <zip.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <utility>

namespace reference::docparser::benchmarks {

namespace fs = std::filesystem;

namespace {

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using ArchiveFile = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

void require(bool isDone) {
    if (!isDone)
        throw std::runtime_error("a package cannot be read");
}

// Calls add(stem, text) for each wanted JSON file of a package.
template <class IsWanted, class Add>
void readPackage(const fs::path& path, IsWanted isWanted, Add add) {
    const Archive archive(zip_open(path.c_str(), ZIP_RDONLY, nullptr), zip_discard);
    require(archive != nullptr);
    const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive.get(), 0));
    for (zip_uint64_t index = 0; index < count; ++index) {
        zip_stat_t status;
        require(zip_stat_index(archive.get(), index, 0, &status) == 0);
        const fs::path name = fs::path(status.name).filename();
        if (name.extension() != ".json" || !isWanted(name.stem()))
            continue;
        const ArchiveFile file(zip_fopen_index(archive.get(), index, 0), zip_fclose);
        std::string text;
        text.reserve(status.size + kSpareBytes);
        text.resize(status.size);
        require(file && zip_fread(file.get(), text.data(), status.size) ==
                            static_cast<zip_int64_t>(status.size));
        add(name.stem(), std::move(text));
    }
}

void addSection(LookupMap& map, const std::u16string& key,
                DocResource<property::RefItemLookup>& section, bool isTranslation) {
    const auto [known, isNew] = map.try_emplace(key, std::move(section));
    if (isNew)
        return;
    if (isTranslation)
        std::swap(known->second, section);
    mergeLookupItems(known->second.items, section.items, unobserved);
}

} // namespace

ResourceMap<property::RefItem> readProduct(const Corpus& corpus, const std::u16string& product,
                                           const std::string& language,
                                           ReadText<property::RefItem> readText) {
    auto english = readText(readFile(corpus.fullFile(product, "en")), product);
    if (language == "en")
        return english;
    std::string text = readFile(corpus.fullFile(product, language));
    if (text.empty())
        return english;
    auto result = readText(std::move(text), product);
    for (auto& [key, section] : english) {
        const auto [translated, isNew] = result.try_emplace(key, std::move(section));
        if (!isNew)
            translated->second.items.merge(section.items);
    }
    return result;
}

LookupResults readIndex(const Corpus& corpus, const std::string& language,
                        ReadText<property::RefItemLookup> readText) {
    const std::string suffix = "_" + language;
    LookupResults results;
    const auto isWanted = [&](const std::string& stem) {
        return stem.ends_with(suffix) || !corpus.isTranslation(stem);
    };
    const auto add = [&](std::string stem, std::string text) {
        const bool isTranslation = corpus.isTranslation(stem);
        if (isTranslation)
            stem.resize(stem.size() - suffix.size());
        for (auto& [key, section] : readText(std::move(text), fs::path(stem).u16string()))
            addSection(corpus.isInstalled(key) ? results.installed : results.notInstalled, key,
                       section, isTranslation);
    };
    std::vector<fs::path> packages;
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(corpus.lookupFolder())) {
        if (!isWanted(entry.path().stem()))
            continue;
        if (entry.path().extension() == ".zip")
            packages.push_back(entry.path());
        else if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    }
    for (const fs::path& package : packages)
        readPackage(package, isWanted, add);
    for (const fs::path& file : files)
        add(file.stem(), readFile(file));
    return results;
}

} // namespace reference::docparser::benchmarks
