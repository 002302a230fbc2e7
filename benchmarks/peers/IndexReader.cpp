#include "benchmarks/peers/IndexReader.hpp"

#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/rows/Corpus.hpp"
#include "docparser/retrieval/LookupMerge.hpp"

#include <zip.h>

#include <algorithm>
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

class IndexReader {
public:
    explicit IndexReader(const IndexSettings& settings)
        : settings_(settings), suffix_("_" + settings.language) {}

    LookupResults read(const fs::path& folder) {
        std::vector<fs::path> packages;
        std::vector<fs::path> files;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            if (!isWanted(entry.path().stem()))
                continue;
            if (entry.path().extension() == ".zip")
                packages.push_back(entry.path());
            else if (entry.path().extension() == ".json")
                files.push_back(entry.path());
        }
        for (const fs::path& package : packages)
            addPackage(package);
        for (const fs::path& file : files)
            add(file.stem(), readFile(file));
        return std::move(results_);
    }

private:
    bool isWanted(const std::string& stem) const {
        return stem.ends_with(suffix_) ||
               std::ranges::none_of(settings_.languages, [&](const std::string& language) {
                   return stem.ends_with("_" + language);
               });
    }

    void addPackage(const fs::path& path) {
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

    void add(std::string stem, std::string text) {
        const bool isTranslation = settings_.language != "en" && stem.ends_with(suffix_);
        if (isTranslation)
            stem.resize(stem.size() - suffix_.size());
        for (auto& [key, section] : settings_.readText(std::move(text), fs::path(stem).u16string()))
            merge(key, section, isTranslation);
    }

    void merge(const std::u16string& key, DocResource<property::RefItemLookup>& section,
               bool isTranslation) {
        LookupMap& map = settings_.isInstalled(key) ? results_.installed : results_.notInstalled;
        const auto [known, isNew] = map.try_emplace(key, std::move(section));
        if (isNew)
            return;
        if (isTranslation)
            std::swap(known->second, section);
        mergeLookupItems(known->second.items, section.items, unobserved);
    }

    const IndexSettings& settings_;
    std::string suffix_;
    LookupResults results_;
};

} // namespace

LookupResults readIndex(const std::u16string& folder, const IndexSettings& settings) {
    return IndexReader(settings).read(folder);
}

} // namespace reference::docparser::benchmarks
