#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <vector>

namespace platform {

/// Events in folders, as the system reports them. They say when to look for changes, not what has
/// changed.
class FolderEvents {
public:
    enum class Outcome {
        Nothing,  ///< in the given time
        Happened, ///< there may be a change, or the folders were not watched before
        Failed    ///< not all folders can be watched
    };

    virtual ~FolderEvents() = default;

    /// Waits until something has happened directly in one of the folders since the last call, but
    /// at most for a duration. A folder that does not exist is waited for.
    virtual Outcome wait(const std::vector<std::filesystem::path>& folders,
                         std::chrono::milliseconds limit) = 0;
};

/// Returns the events of this system; null if it has none, or has no resources left for them.
std::unique_ptr<FolderEvents> systemFolderEvents();

} // namespace platform
