#include "tools/refdoc/check/TemporaryRoot.hpp"

#include <system_error>

namespace refdoc::check {

namespace fs = std::filesystem;

TemporaryRoot::TemporaryRoot(const fs::path& file, Folder folder)
    : root_("refdoc-check-"),
      folder_(path() / "docCatalog" /
              (folder == Folder::Lookup ? "referenceapi_lookup" : "referenceapi")) {
    fs::create_directories(folder_);
    std::error_code error;
    fs::create_symlink(file, folder_ / file.filename(), error);
    if (error)
        fs::copy_file(file, folder_ / file.filename());
}

} // namespace refdoc::check
