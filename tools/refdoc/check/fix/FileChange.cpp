#include "tools/refdoc/check/fix/FileChange.hpp"

#include "platform/system/TemporaryFolder.hpp"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace refdoc::check {

namespace fs = std::filesystem;

namespace {

// Writes a new file beside the old one, then takes its place.
void replaceContent(const fs::path& file, const std::string& text) {
    const platform::TemporaryFolder folder(".refdoc-", file.parent_path());
    const fs::path copy = folder.path() / file.filename();
    std::ofstream stream(copy, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream)
        throw fs::filesystem_error("can't write", copy,
                                   std::error_code(errno, std::generic_category()));
    fs::permissions(copy, fs::status(file).permissions());
    fs::rename(copy, file);
}

// Where letter case does not matter, some systems ignore a new name that differs only in case. The
// file then gets another name in between.
void renameFile(const fs::path& file, const fs::path& newFile) {
    std::error_code ignored;
    if (!fs::equivalent(file, newFile, ignored))
        return fs::rename(file, newFile);
    fs::path between = file.parent_path() / ".refdoc-";
    between += newFile.filename();
    fs::rename(file, between);
    try {
        fs::rename(between, newFile);
    } catch (...) {
        fs::rename(between, file);
        throw;
    }
}

} // namespace

void write(const FileChange& change) {
    if (change.after != change.before)
        replaceContent(change.file, change.after);
    if (change.newFile != change.file)
        renameFile(change.file, change.newFile);
}

} // namespace refdoc::check
