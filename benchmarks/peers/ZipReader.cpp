#include "benchmarks/peers/ZipReader.hpp"

#include <stdexcept>
#include <string_view>

namespace reference::docparser::benchmarks {

namespace {

struct Close {
    void operator()(zip_file_t* file) const noexcept { zip_fclose(file); }
};

bool isMetadata(std::string_view name) {
    return name == "[Content_Types].xml" || name.ends_with(".rels");
}

} // namespace

ZipReader::ZipReader(const std::filesystem::path& path)
    : archive_(zip_open(path.c_str(), ZIP_RDONLY, nullptr)) {
    if (!archive_)
        throw std::runtime_error("no zip: " + path.string());
}

std::vector<ZipReader::Entry> ZipReader::entries() const {
    std::vector<Entry> entries;
    const zip_int64_t count = zip_get_num_entries(archive_.get(), 0);
    for (zip_uint64_t index = 0; index < static_cast<zip_uint64_t>(count); ++index) {
        zip_stat_t status;
        if (zip_stat_index(archive_.get(), index, 0, &status) != 0)
            throw std::runtime_error("an entry without a directory record");
        const std::string_view name = status.name;
        if (!name.ends_with('/') && !isMetadata(name))
            entries.push_back({std::string(name), index, static_cast<std::size_t>(status.size)});
    }
    return entries;
}

std::string ZipReader::read(const Entry& entry, std::size_t spareBytes) const {
    const std::unique_ptr<zip_file_t, Close> file(zip_fopen_index(archive_.get(), entry.index, 0));
    std::string text;
    text.reserve(entry.size + spareBytes);
    text.resize(entry.size);
    if (!file ||
        zip_fread(file.get(), text.data(), entry.size) != static_cast<zip_int64_t>(entry.size))
        throw std::runtime_error("cannot read " + entry.name);
    return text;
}

} // namespace reference::docparser::benchmarks
