#include "tools/refdoc/check/TemporaryRoot.hpp"

#include <fmt/format.h>

#include <random>
#include <string>
#include <system_error>

namespace refdoc::check {

namespace fs = std::filesystem;

namespace {

fs::path makeUniqueFolder() {
    const fs::path parent = fs::canonical(fs::temp_directory_path());
    std::random_device random;
    for (;;) {
        const fs::path folder = parent / fmt::format("refdoc-check-{:08x}", random());
        // If another process has taken the name, try the next one.
        if (fs::create_directory(folder))
            return folder;
    }
}

} // namespace

TemporaryRoot::TemporaryRoot(const fs::path& file, Folder folder)
    : path_(makeUniqueFolder()),
      folder_(path_ / "docCatalog" /
              (folder == Folder::Lookup ? "referenceapi_lookup" : "referenceapi")) {
    fs::create_directories(folder_);
    std::error_code error;
    fs::create_symlink(file, folder_ / file.filename(), error);
    if (error)
        fs::copy_file(file, folder_ / file.filename());
}

TemporaryRoot::~TemporaryRoot() {
    std::error_code left;
    fs::remove_all(path_, left);
}

} // namespace refdoc::check
