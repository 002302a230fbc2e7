#pragma once

#include "platform/watch/FolderEvents.hpp"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace platform {

/// Finds out which files in folders change, however they are written: in place, by renaming a new
/// file, or with the whole folder.
///
/// Without events of the system, or if these fail, files are compared several times a second. Even
/// with events they are compared every few seconds, because targets of symbolic links and folders
/// of the network change without events.
class FolderWatch {
public:
    /// \param folders  those whose files are watched, without the folders in them; they need not
    ///                 exist
    /// \param events   null if there are none
    explicit FolderWatch(std::vector<std::filesystem::path> folders,
                         std::unique_ptr<FolderEvents> events = systemFolderEvents());

    /// Waits for changes, but at most for a duration. After the first change, it also waits until
    /// there is none for a short time, so that programs can finish what they are writing.
    /// \returns  the files that were added, changed or removed since the last call or the
    ///           construction; empty if there are none
    std::set<std::filesystem::path> wait(std::chrono::milliseconds limit);

private:
    struct State {
        std::filesystem::file_time_type time;
        std::uintmax_t size;

        bool operator==(const State&) const = default;
    };
    using States = std::map<std::filesystem::path, State>;
    using Clock = std::chrono::steady_clock;

    States readStates() const;
    bool isTimeToCompare(std::chrono::milliseconds limit);
    States settled(States states) const;

    std::vector<std::filesystem::path> folders_;
    std::unique_ptr<FolderEvents> events_;
    States states_;
    Clock::time_point nextComparison_{};
};

} // namespace platform
