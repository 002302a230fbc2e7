#include "platform/ReadLimits.hpp"

#include <atomic>

namespace platform {

namespace {

constinit std::atomic<std::uint64_t> fileBytes{ReadLimits{}.fileBytes};
constinit std::atomic<std::uint64_t> entryBytes{ReadLimits{}.entryBytes};
constinit std::atomic<std::uint64_t> packageBytes{ReadLimits{}.packageBytes};

} // namespace

// Out of line, so that one library holds the type's identity and every other can catch it.
LimitError::~LimitError() = default;

void setReadLimits(const ReadLimits& limits) noexcept {
    fileBytes.store(limits.fileBytes, std::memory_order_relaxed);
    entryBytes.store(limits.entryBytes, std::memory_order_relaxed);
    packageBytes.store(limits.packageBytes, std::memory_order_relaxed);
}

ReadLimits readLimits() noexcept {
    return {fileBytes.load(std::memory_order_relaxed), entryBytes.load(std::memory_order_relaxed),
            packageBytes.load(std::memory_order_relaxed)};
}

} // namespace platform
