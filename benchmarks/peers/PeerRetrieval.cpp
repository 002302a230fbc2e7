#include "benchmarks/peers/PeerRetrieval.hpp"

#include "benchmarks/peers/Peers.hpp"
#include "benchmarks/peers/ZipReader.hpp"
#include "docparser/retrieval/LookupMerge.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace reference::docparser::benchmarks {

namespace fs = std::filesystem;
using property::RefItem;
using property::RefItemLookup;

namespace {

class Descriptor {
public:
    explicit Descriptor(const fs::path& path)
        : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~Descriptor() {
        if (number_ >= 0)
            ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const noexcept { return number_; }

private:
    int number_;
};

// One file or entry that holds a product in English or in the current language.
struct LookupFile {
    std::string stem;
    bool isTranslated;
};

class LookupRetrieval {
public:
    LookupRetrieval(const LookupSettings& settings, const ReadText<RefItemLookup>& read)
        : settings_(settings), read_(read), suffix_("_" + settings.language) {}

    LookupResults run(const fs::path& folder) {
        std::vector<std::pair<LookupFile, fs::path>> plain;
        std::vector<std::pair<LookupFile, fs::path>> packages;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const fs::path& path = entry.path();
            const fs::path extension = path.extension();
            LookupFile file;
            if ((extension != ".json" && extension != ".zip") || !isWanted(path.stem(), file))
                continue;
            (extension == ".zip" ? packages : plain).emplace_back(std::move(file), path);
        }
        for (const auto& [file, path] : packages) {
            try {
                addPackage(file, path);
            } catch (const std::exception&) {
                // A broken package is left out.
            }
        }
        for (const auto& [file, path] : plain)
            add(file, readFile(path));
        return std::move(results_);
    }

private:
    bool isTranslated(const std::string& stem) const {
        return std::ranges::any_of(settings_.otherLanguages, [&](const std::string& language) {
            return stem.ends_with("_" + language);
        });
    }

    bool isWanted(const std::string& stem, LookupFile& file) const {
        file = {stem, isTranslated(stem)};
        return !file.isTranslated || stem.ends_with(suffix_);
    }

    void addPackage(const LookupFile& package, const fs::path& path) {
        const ZipReader zip(path);
        const std::vector<ZipReader::Entry> entries = zip.entries();
        for (const ZipReader::Entry& entry : entries) {
            const fs::path name = fs::path(entry.name).filename();
            LookupFile file{name.stem(), package.isTranslated};
            if (name.extension() != ".json" || (entries.size() > 1 && !isWanted(file.stem, file)))
                continue;
            add(file, zip.read(entry, kSpareBytes));
        }
    }

    void add(const LookupFile& file, std::string text) {
        std::string name = file.stem;
        if (file.isTranslated)
            name.resize(std::min(name.size(), name.find(suffix_)));
        try {
            LookupMap sections = read_(std::move(text), fs::path(name).u16string());
            for (auto& [key, section] : sections)
                merge(key, section, file.isTranslated);
        } catch (const std::exception&) {
            // A damaged file is left out.
        }
    }

    void merge(const std::u16string& key, DocResource<RefItemLookup>& section, bool isTranslated) {
        LookupMap& map =
            settings_.installed.contains(key) ? results_.installed : results_.notInstalled;
        const auto [entry, isNew] = map.try_emplace(key, std::move(section));
        if (isNew)
            return;
        if (isTranslated)
            std::swap(entry->second, section);
        mergeLookupItems(entry->second.items, section.items, unobserved);
    }

    const LookupSettings& settings_;
    const ReadText<RefItemLookup>& read_;
    std::string suffix_;
    LookupResults results_;
};

} // namespace

std::string readFile(const fs::path& path) {
    std::string text;
    const Descriptor file(path);
    struct stat status;
    if (file.number() < 0 || ::fstat(file.number(), &status) != 0)
        return text;
    const auto size = static_cast<std::size_t>(status.st_size);
    text.reserve(size + kSpareBytes);
    text.resize(size);
    std::size_t done = 0;
    while (done < size) {
        const ssize_t count = ::read(file.number(), text.data() + done, size - done);
        if (count <= 0)
            return {};
        done += static_cast<std::size_t>(count);
    }
    return text;
}

ResourceMap<RefItem> retrieveProduct(const fs::path& folder, const std::u16string& product,
                                     const std::string& language, const ReadText<RefItem>& read) {
    const std::string stem = (folder / product).string();
    ResourceMap<RefItem> english = read(readFile(stem + ".json"), product);
    if (language == "en")
        return english;
    std::string text = readFile(stem + "_" + language + ".json");
    if (text.empty())
        return english;
    ResourceMap<RefItem> translated = read(std::move(text), product);
    for (auto& [key, section] : translated) {
        const auto [entry, isNew] = english.try_emplace(key, std::move(section));
        if (isNew)
            continue;
        section.items.merge(entry->second.items);
        std::swap(entry->second, section);
    }
    return english;
}

LookupResults retrieveLookups(const fs::path& folder, const LookupSettings& settings,
                              const ReadText<RefItemLookup>& read) {
    return LookupRetrieval(settings, read).run(folder);
}

} // namespace reference::docparser::benchmarks
