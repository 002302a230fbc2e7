#pragma once

#include "platform/system/TemporaryFolder.hpp"

#include <boost/interprocess/sync/file_lock.hpp>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace refdoc::site {

/// How many files a publication changed.
struct SiteChanges {
    std::size_t written = 0; ///< new, or with other content
    std::size_t unchanged = 0;
    std::size_t removed = 0;

    bool operator==(const SiteChanges&) const = default;
};

/// The folder that a site is written to.
///
/// New files wait in a temporary folder beside it until publish(); without that, the folder stays
/// as it is. A hidden file in the folder lists the files of the site in order, so that the next
/// publication can tell them from the files of others.
class SiteFolder {
public:
    /// The file that lists the others.
    static constexpr std::string_view kListName = ".refdoc-site";

    /// Whether the folder may contain files that are not of a site.
    enum class Others { Refused, Kept };

    /// Creates the folders above the folder. Removes what killed runs have left beside it.
    ///
    /// \throws std::runtime_error  the folder contains files of others, and these are refused; or
    ///                             it is not a folder
    /// \throws std::filesystem::filesystem_error  a folder cannot be read or created
    SiteFolder(const std::filesystem::path& folder, Others others);

    /// Adds a file. One that is already there with this content is not written. Any thread may
    /// call, and several at a time.
    /// \param path  relative, with '/' between folders; UTF-8. Each path is added once.
    /// \throws std::filesystem::filesystem_error  the file cannot be written
    void add(const std::string& path, std::string_view content);

    /// Gives a file that was added another content.
    /// \throws std::filesystem::filesystem_error  the file cannot be written
    void replace(const std::string& path, std::string_view content);

    /// Makes the added files the site, and removes its other files and the folders that become
    /// empty. The last call to the object.
    /// \throws std::filesystem::filesystem_error  a file cannot be moved; the next publication
    ///                                            completes the site
    SiteChanges publish();

private:
    class PathList;

    void expectNoOthers() const;
    void write(const std::string& path, std::string_view content) const;
    void stage(const std::string& path, std::string_view content) const;
    std::size_t moveStagedFiles();
    std::size_t removeFiles(const std::vector<std::string_view>& paths) const;

    std::filesystem::path folder_;
    bool hasOldFiles_;
    platform::TemporaryFolder temporary_;
    boost::interprocess::file_lock lock_; // held for as long as the temporary folder is in use
    std::filesystem::path staged_;        // as the folder of the site, with the new files only
    std::mutex mutex_;                    // guards list_
    std::ofstream list_;                  // of the added files
};

} // namespace refdoc::site
