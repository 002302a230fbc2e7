#include "platform/watch/FolderEvents.hpp"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <set>
#include <system_error>
#include <utility>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t kEvents = IN_CLOSE_WRITE | IN_MODIFY | IN_ATTRIB | IN_CREATE | IN_DELETE |
                                  IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

// A missing folder appears in the nearest folder above it that exists.
fs::path nearestFolder(fs::path folder) {
    std::error_code missing;
    while (!fs::is_directory(folder, missing) && folder.has_relative_path())
        folder = folder.parent_path();
    return folder.empty() ? "." : folder;
}

class Inotify final : public FolderEvents {
public:
    explicit Inotify(int descriptor) : descriptor_(descriptor) {}
    ~Inotify() override { ::close(descriptor_); }
    Inotify(const Inotify&) = delete;
    Inotify& operator=(const Inotify&) = delete;

    Outcome wait(const std::vector<fs::path>& folders, std::chrono::milliseconds limit) override {
        std::set<int> watches;
        for (const fs::path& folder : folders) {
            // Returns the present watch of a folder that has one. A folder that took the place of
            // another one has none.
            const int watch =
                ::inotify_add_watch(descriptor_, nearestFolder(folder).c_str(), kEvents);
            if (watch < 0)
                return Outcome::Failed;
            watches.insert(watch);
        }
        if (watches != watches_) {
            replaceWatches(std::move(watches));
            return Outcome::Happened;
        }
        pollfd waiting{.fd = descriptor_, .events = POLLIN, .revents = 0};
        if (::poll(&waiting, 1, static_cast<int>(limit.count())) <= 0)
            return Outcome::Nothing;
        discardEvents();
        return Outcome::Happened;
    }

private:
    void replaceWatches(std::set<int> watches) {
        for (const int old : watches_) {
            if (!watches.contains(old))
                ::inotify_rm_watch(descriptor_, old); // fails if the folder is gone
        }
        watches_ = std::move(watches);
    }

    void discardEvents() const {
        alignas(inotify_event) std::array<char, 4096> events;
        while (::read(descriptor_, events.data(), events.size()) > 0) {
        }
    }

    int descriptor_;
    std::set<int> watches_;
};

} // namespace

std::unique_ptr<FolderEvents> systemFolderEvents() {
    const int descriptor = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    return descriptor < 0 ? nullptr : std::make_unique<Inotify>(descriptor);
}

} // namespace platform
