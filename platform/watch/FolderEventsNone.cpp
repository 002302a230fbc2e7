#include "platform/watch/FolderEvents.hpp"

namespace platform {

std::unique_ptr<FolderEvents> systemFolderEvents() {
    return nullptr;
}

} // namespace platform
