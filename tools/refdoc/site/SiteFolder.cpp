#include "tools/refdoc/site/SiteFolder.hpp"

#include "platform/Failure.hpp"
#include "platform/i18n/Converter.hpp"
#include "tools/refdoc/terminal/Words.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace refdoc::site {

namespace fs = std::filesystem;
using boost::interprocess::file_lock;

namespace {

constexpr char kTemporaryPrefix[] = ".refdoc-";
constexpr char kLockName[] = "lock";

// Returns the folder without links and with the folders above it, which are created.
fs::path prepared(const fs::path& folder) {
    if (fs::exists(folder)) {
        if (!fs::is_directory(folder))
            throw std::runtime_error(quoted(folder.u16string()) + " is not a folder");
        return fs::canonical(folder);
    }
    fs::path absolute = fs::absolute(folder).lexically_normal();
    if (!absolute.has_filename()) // a slash at the end
        absolute = absolute.parent_path();
    fs::create_directories(absolute.parent_path());
    return absolute;
}

fs::path below(const fs::path& folder, const std::string& path) {
    return folder / std::u8string(path.begin(), path.end());
}

file_lock lockOf(const fs::path& temporaryFolder) {
    return file_lock((temporaryFolder / kLockName).c_str());
}

// Returns the lock of a new temporary folder.
file_lock locked(const fs::path& temporaryFolder) {
    std::ofstream(temporaryFolder / kLockName, std::ios::binary);
    file_lock lock = lockOf(temporaryFolder);
    // A file system may have no locks. The folder then never counts as abandoned.
    platform::ignoreFailure([&] { lock.lock(); });
    return lock;
}

// Returns whether a folder is the temporary folder of a run that has ended. The system unlocks the
// files of a process when it ends, whatever the reason.
bool isAbandoned(const fs::path& folder) {
    std::error_code unreadable;
    bool isUnlocked = false;
    if (folder.filename().u16string().starts_with(fl::i18n::to_ustring(kTemporaryPrefix)) &&
        fs::is_regular_file(folder / kLockName, unreadable))
        // A folder of another user, for example, is left to that user.
        platform::ignoreFailure([&] { isUnlocked = lockOf(folder).try_lock(); });
    return isUnlocked;
}

// Removes the temporary folders in a folder whose runs have ended, and returns the folder.
const fs::path& withoutAbandoned(const fs::path& folder) {
    std::error_code failure; // to list or to remove; neither matters for the new site
    std::vector<fs::path> abandoned;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, failure)) {
        if (isAbandoned(entry.path()))
            abandoned.push_back(entry.path());
    }
    for (const fs::path& temporaryFolder : abandoned)
        fs::remove_all(temporaryFolder, failure);
    return folder;
}

std::string read(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool hasContent(const fs::path& file, std::string_view content) {
    std::error_code missing;
    return fs::is_regular_file(fs::symlink_status(file, missing)) &&
           fs::file_size(file, missing) == content.size() && read(file) == content;
}

void close(std::ofstream& stream, const fs::path& file) {
    stream.close();
    if (!stream)
        throw fs::filesystem_error("can't write", file,
                                   std::error_code(errno, std::generic_category()));
}

} // namespace

// The paths in a list of files, in memory only while the list is used: a site may have millions.
class SiteFolder::PathList {
public:
    // \param file  may be missing, which means no paths
    explicit PathList(const fs::path& file) : text_(read(file)) {
        std::string_view rest = text_;
        for (std::size_t end = rest.find('\n'); end != rest.npos; end = rest.find('\n')) {
            paths_.push_back(rest.substr(0, end));
            rest.remove_prefix(end + 1);
        }
        std::ranges::sort(paths_);
    }
    PathList(const PathList&) = delete;
    PathList& operator=(const PathList&) = delete;

    std::size_t size() const { return paths_.size(); }

    bool contains(std::string_view path) const { return std::ranges::binary_search(paths_, path); }

    // Returns the paths that another list lacks; valid as long as this object.
    std::vector<std::string_view> without(const PathList& other) const {
        std::vector<std::string_view> paths;
        std::ranges::set_difference(paths_, other.paths_, std::back_inserter(paths));
        return paths;
    }

    // Returns the text of a list with the paths in order.
    std::string sortedText() const {
        std::string text;
        text.reserve(text_.size());
        for (const std::string_view path : paths_)
            text.append(path).append(1, '\n');
        return text;
    }

private:
    std::string text_;
    std::vector<std::string_view> paths_; // in text_
};

SiteFolder::SiteFolder(const fs::path& folder, Others others)
    : folder_(prepared(folder)),
      hasOldFiles_(fs::exists(folder_)),
      temporary_(kTemporaryPrefix, withoutAbandoned(folder_.parent_path())),
      lock_(locked(temporary_.path())),
      staged_(temporary_.path() / "site"),
      list_(temporary_.path() / "list", std::ios::binary) {
    if (others == Others::Refused)
        expectNoOthers();
    fs::create_directory(staged_);
}

void SiteFolder::expectNoOthers() const {
    if (!fs::exists(folder_))
        return;
    const PathList files(folder_ / kListName);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder_)) {
        const std::u16string path = entry.path().lexically_relative(folder_).generic_u16string();
        const bool isFolder = entry.is_directory() && !entry.is_symlink();
        if (!isFolder && path != fl::i18n::to_ustring(kListName) &&
            !files.contains(fl::i18n::to_string(path)))
            throw std::runtime_error(
                fmt::format("{} contains {}, which is not a file of a site; name another folder, "
                            "or keep such files with --force",
                            quoted(folder_.u16string()), quoted(path)));
    }
}

void SiteFolder::add(const std::string& path, std::string_view content) {
    {
        const std::lock_guard lock(mutex_);
        list_ << path << '\n';
    }
    write(path, content);
}

void SiteFolder::replace(const std::string& path, std::string_view content) {
    fs::remove(below(staged_, path));
    write(path, content);
}

void SiteFolder::write(const std::string& path, std::string_view content) const {
    if (!hasOldFiles_ || !hasContent(below(folder_, path), content))
        stage(path, content);
}

void SiteFolder::stage(const std::string& path, std::string_view content) const {
    const fs::path file = below(staged_, path);
    std::ofstream stream;
    stream.rdbuf()->pubsetbuf(nullptr, 0); // the content is written at once
    stream.open(file, std::ios::binary);
    if (!stream) {
        fs::create_directories(file.parent_path());
        stream.open(file, std::ios::binary);
    }
    stream << content;
    close(stream, file);
}

SiteChanges SiteFolder::publish() {
    const fs::path listFile = temporary_.path() / "list";
    close(list_, listFile);
    const PathList paths(listFile);
    const std::string list = paths.sortedText();
    const bool isListChanged = !hasContent(folder_ / kListName, list);
    if (isListChanged)
        stage(std::string(kListName), list);
    if (!fs::exists(folder_) || fs::is_empty(folder_)) {
        fs::remove(folder_);
        fs::rename(staged_, folder_);
        return {.written = paths.size()};
    }
    const PathList oldPaths(folder_ / kListName);
    // Should the publication end early, the files of both sites are recognised later.
    if (isListChanged)
        std::ofstream(folder_ / kListName, std::ios::binary | std::ios::app) << list;
    const std::size_t removed = removeFiles(oldPaths.without(paths));
    const std::size_t written = moveStagedFiles();
    return {.written = written, .unchanged = paths.size() - written, .removed = removed};
}

std::size_t SiteFolder::removeFiles(const std::vector<std::string_view>& paths) const {
    std::size_t removed = 0;
    for (const std::string_view path : paths) {
        fs::path file = below(folder_, std::string(path));
        removed += fs::remove(file) ? 1 : 0;
        std::error_code notEmpty;
        do {
            file = file.parent_path();
        } while (file != folder_ && fs::remove(file, notEmpty));
    }
    return removed;
}

// Returns the number of files without the list, which comes last, because it has no lines for the
// files of the old site.
std::size_t SiteFolder::moveStagedFiles() {
    std::size_t count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(staged_)) {
        const fs::path file = folder_ / entry.path().lexically_relative(staged_);
        if (entry.is_directory())
            fs::create_directory(file);
        else if (entry.path() != staged_ / kListName) {
            fs::rename(entry.path(), file);
            ++count;
        }
    }
    if (fs::exists(staged_ / kListName))
        fs::rename(staged_ / kListName, folder_ / kListName);
    return count;
}

} // namespace refdoc::site
