#include "tools/refdoc/check/TemporaryRoot.hpp"

#include <system_error>

namespace refdoc::check {

namespace fs = std::filesystem;

TemporaryRoot::TemporaryRoot(const fs::path& file, Folder folder, const fs::path& name)
    : root_("refdoc-check-"),
      folder_(path() / "docCatalog" /
              (folder == Folder::Lookup ? "referenceapi_lookup" : "referenceapi")) {
    fs::create_directories(folder_);
    if (file.empty())
        return;
    std::error_code error;
    fs::create_symlink(file, folder_ / name, error);
    if (error)
        fs::copy_file(file, folder_ / name);
}

} // namespace refdoc::check
