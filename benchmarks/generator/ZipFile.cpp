#include "benchmarks/generator/ZipFile.hpp"

#include <zip.h>

#include <ctime>
#include <memory>
#include <stdexcept>

namespace reference::docparser::benchmarks {

namespace {

struct Discard {
    void operator()(zip_t* archive) const noexcept { zip_discard(archive); }
};

void require(bool isDone, const std::filesystem::path& path) {
    if (!isDone)
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace

void writeZip(const std::filesystem::path& path, const std::vector<ZipEntry>& entries) {
    constexpr std::time_t kModified = 1'700'000'000;
    std::unique_ptr<zip_t, Discard> archive(
        zip_open(path.c_str(), ZIP_CREATE | ZIP_TRUNCATE, nullptr));
    require(archive != nullptr, path);
    for (const ZipEntry& entry : entries) {
        zip_source_t* source =
            zip_source_buffer(archive.get(), entry.text.data(), entry.text.size(), /*freep=*/0);
        require(source != nullptr, path);
        const zip_int64_t index =
            zip_file_add(archive.get(), entry.name.c_str(), source, ZIP_FL_ENC_UTF_8);
        if (index < 0)
            zip_source_free(source);
        require(index >= 0, path);
        zip_file_set_mtime(archive.get(), static_cast<zip_uint64_t>(index), kModified, 0);
    }
    require(zip_close(archive.get()) == 0, path);
    // A close that succeeds has freed the archive.
    static_cast<void>(archive.release());
}

} // namespace reference::docparser::benchmarks
