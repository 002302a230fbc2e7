#include "platform/ReadLimits.hpp"

#include <atomic>

namespace platform {

namespace {

constinit std::atomic<std::uint64_t> fileBytes{ReadLimits{}.fileBytes};
constinit std::atomic<std::uint64_t> entryBytes{ReadLimits{}.entryBytes};
constinit std::atomic<std::uint64_t> packageBytes{ReadLimits{}.packageBytes};
constinit std::atomic<std::uint64_t> directoryBytes{ReadLimits{}.directoryBytes};

} // namespace

// Out of line, so that a single library defines the type and every other one can catch it.
LimitError::~LimitError() = default;

void setReadLimits(const ReadLimits& limits) noexcept {
    fileBytes.store(limits.fileBytes, std::memory_order_relaxed);
    entryBytes.store(limits.entryBytes, std::memory_order_relaxed);
    packageBytes.store(limits.packageBytes, std::memory_order_relaxed);
    directoryBytes.store(limits.directoryBytes, std::memory_order_relaxed);
}

ReadLimits readLimits() noexcept {
    return {fileBytes.load(std::memory_order_relaxed), entryBytes.load(std::memory_order_relaxed),
            packageBytes.load(std::memory_order_relaxed),
            directoryBytes.load(std::memory_order_relaxed)};
}

} // namespace platform
